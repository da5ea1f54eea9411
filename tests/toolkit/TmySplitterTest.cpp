#include "toolkit/TmySplitter.h"

#include "tests/toolkit/ControlFixture.h"

namespace {

using SplitterGeometry::Keeps;

TEST(SplitterGeometry, GivesTheKeptSideItsLengthWithinTheLeastOnes) {
  const struct {
    int total;
    Keeps keeps;
    int wanted, first, second;
  } kCases[] = {
      {400, Keeps::kFirst, 100, 100, 290}, {400, Keeps::kSecond, 100, 290, 100}, {300, Keeps::kFirst, -5, 20, 270},
      {300, Keeps::kFirst, 999, 260, 30},  {300, Keeps::kSecond, 999, 20, 270},  {300, Keeps::kSecond, 0, 260, 30},
      {50, Keeps::kFirst, 35, 10, 30},     {25, Keeps::kFirst, 35, 0, 15},       {5, Keeps::kSecond, 35, 0, 0},
  };
  for (const auto& c : kCases) {
    const SplitterGeometry::Parts parts = SplitterGeometry::Divided({c.total, 10, 20, 30}, c.keeps, c.wanted);
    EXPECT_EQ(std::pair(parts.first, parts.second), std::pair(c.first, c.second)) << c.total << " with " << c.wanted;
  }
}

class TmySplitterTest : public ControlFixture {
 protected:
  void Prepare() override {
    splitter_ = new TmySplitter2(*window_, Keeps::kSecond);
    splitter_->SetLeast(20, 30);
    splitter_->SetLength(100);
    Listen(splitter_->moved);
    splitter_->done.Bind<&TmySplitterTest::Done>(this);
    splitter_->Place({10, 10, 310, 210});
  }
  void Done(TmySplitter&) { ++done_; }

  TmySplitter2* splitter_ = nullptr;
  int done_ = 0;
};

TEST_F(TmySplitterTest, IsDraggedAndMovedByKeysAndTellsWhenItIsLeft) {
  EXPECT_EQ(splitter_->Second().left, 210);
  EXPECT_EQ(splitter_->First().right, splitter_->Bounds().left);
  Input::Mouse(*splitter_, WM_LBUTTONDOWN, 3, 50);
  Input::Mouse(*splitter_, WM_MOUSEMOVE, -17, 50);
  Input::Mouse(*splitter_, WM_MOUSEMOVE, 3, 90);  // the bar is where the cursor is
  EXPECT_EQ(splitter_->Length(), 120);
  EXPECT_EQ(done_, 0);
  Input::Mouse(*splitter_, WM_LBUTTONUP, 3, 50, 0);
  Input::Click(*splitter_, 3, 50);
  EXPECT_EQ(events_ * 10 + done_, 11);
  Input::Key(*splitter_, VK_RIGHT);
  EXPECT_EQ(splitter_->Length(), 120 - TmyApplication::Get().Theme().Step());
  Input::Key(*splitter_, VK_DOWN);
  Input::Drag(*splitter_, 3, 50, 900, 50);
  EXPECT_EQ(splitter_->Length(), 30);
  EXPECT_EQ(events_ * 10 + done_, 33);
}

TEST_F(TmySplitterTest, MayBeDestroyedByItsOwnersHandlers) {
  CloseDuring([this] { Input::Key(*splitter_, VK_LEFT); });
  CloseDuring([this] { Input::Drag(*splitter_, 3, 3, -20, 3); });
  EXPECT_EQ(done_, 0);
}

}  // namespace

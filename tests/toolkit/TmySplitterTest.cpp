#include "toolkit/TmySplitter.h"

#include "tests/toolkit/ControlFixture.h"

using SplitterGeometry::Keeps;

TEST(SplitterGeometry, GivesTheKeptSideItsLengthWithinTheLeastOnes) {
  const std::tuple<int, Keeps, int, int, int> kCases[] = {
      // total, kept, wanted; first, second
      {400, Keeps::kFirst, 100, 100, 290}, {400, Keeps::kSecond, 100, 290, 100}, {300, Keeps::kFirst, -5, 20, 270},
      {300, Keeps::kFirst, 999, 260, 30},  {300, Keeps::kSecond, 999, 20, 270},  {300, Keeps::kSecond, 0, 260, 30},
      {50, Keeps::kFirst, 35, 10, 30},     {25, Keeps::kFirst, 35, 0, 15},       {5, Keeps::kSecond, 35, 0, 0},
  };
  for (const auto& [total, keeps, wanted, first, second] : kCases) {
    const SplitterGeometry::Parts parts = SplitterGeometry::Divided({total, 10, 20, 30}, keeps, wanted);
    EXPECT_EQ(std::pair(parts.first, parts.second), std::pair(first, second)) << total << " with " << wanted;
  }
}

struct TmySplitterTest : ControlFixture {
  void Prepare() override {
    splitter_ = new TmySplitter2(*window_, Keeps::kSecond);
    upDown_ = new TmySplitter(*window_);
    for (TmySplitter* splitter : {upDown_, static_cast<TmySplitter*>(splitter_)}) {
      splitter->SetLeast(20, 30);
      splitter->SetLength(100);
      Listen(splitter->moved);
      splitter->Place({10, 10, 310, 210});
    }
  }

  TmySplitter2* splitter_ = nullptr;
  TmySplitter* upDown_ = nullptr;
};

TEST_F(TmySplitterTest, IsDraggedAndMovedByKeys) {
  EXPECT_EQ(splitter_->Second().left, 210);
  EXPECT_EQ(splitter_->First().right, splitter_->Bounds().left);
  Input::Mouse(*splitter_, WM_LBUTTONDOWN, 3, 50);
  Input::Mouse(*splitter_, WM_MOUSEMOVE, -17, 50);
  Input::Mouse(*splitter_, WM_MOUSEMOVE, 3, 90);  // the bar is where the cursor is
  EXPECT_EQ(splitter_->Length(), 120);
  Input::Mouse(*splitter_, WM_LBUTTONUP, 3, 50, 0);
  Input::Click(*splitter_, 3, 50);
  EXPECT_EQ(events_, 1);
  Input::Key(*splitter_, VK_RIGHT);
  EXPECT_EQ(splitter_->Length(), 120 - TmyApplication::Get().Theme().Step());
  Input::Key(*splitter_, VK_DOWN);
  Input::Drag(*splitter_, 3, 50, 900, 50);
  EXPECT_EQ(splitter_->Length(), 30);
  EXPECT_EQ(events_, 3);
}

TEST_F(TmySplitterTest, MayBeDestroyedByItsOwnersHandlers) {
  CloseDuring([this] { Input::Key(*upDown_, VK_DOWN); });
  CloseDuring([this] { Input::Drag(*upDown_, 3, 3, 3, 20); });
}

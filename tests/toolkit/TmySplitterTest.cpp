#include "toolkit/TmySplitter.h"

#include "tests/toolkit/ControlFixture.h"

namespace {

using SplitterGeometry::Keeps;

TEST(SplitterGeometry, GivesTheKeptSideItsLengthWithinTheLeastOnes) {
  const struct {
    SplitterGeometry::Space space;
    Keeps keeps;
    int wanted, first, second;
  } kCases[] = {
      {{300, 10, 20, 30}, Keeps::kFirst, 100, 100, 190},  {{400, 10, 20, 30}, Keeps::kFirst, 100, 100, 290},
      {{400, 10, 20, 30}, Keeps::kSecond, 100, 290, 100}, {{300, 10, 20, 30}, Keeps::kFirst, -5, 20, 270},
      {{300, 10, 20, 30}, Keeps::kFirst, 999, 260, 30},   {{300, 10, 20, 30}, Keeps::kSecond, 999, 20, 270},
      {{300, 10, 20, 30}, Keeps::kSecond, 0, 260, 30},    {{50, 10, 20, 30}, Keeps::kFirst, 35, 10, 30},
      {{25, 10, 20, 30}, Keeps::kFirst, 35, 0, 15},       {{5, 10, 20, 30}, Keeps::kSecond, 35, 0, 0},
  };
  for (const auto& c : kCases) {
    const SplitterGeometry::Parts parts = SplitterGeometry::Divided(c.space, c.keeps, c.wanted);
    EXPECT_EQ(parts.first, c.first) << c.space.total << " with " << c.wanted;
    EXPECT_EQ(parts.second, c.second) << c.space.total << " with " << c.wanted;
  }
}

class TmySplitterTest : public ControlFixture {
 protected:
  void Watch(TmySplitter& splitter) {
    splitter.SetLeast(20, 30);
    splitter.SetLength(100);
    splitter.moved.Bind<&TmySplitterTest::Moved>(this);
    splitter.done.Bind<&TmySplitterTest::Done>(this);
    splitter.Place({10, 10, 310, 210});
  }
  void Moved(TmySplitter&) { Tell(); }
  void Done(TmySplitter&) { ++done_; }

  int done_ = 0;
};

TEST_F(TmySplitterTest, IsDraggedAndMovedByKeysAndTellsWhenItIsLeft) {
  auto* across = new TmySplitter2(*window_, Keeps::kSecond);
  Watch(*across);
  EXPECT_EQ(across->Second().left, 210);
  EXPECT_EQ(across->First().right, across->Bounds().left);
  Input::Mouse(*across, WM_LBUTTONDOWN, 3, 50);
  Input::Mouse(*across, WM_MOUSEMOVE, -17, 50);
  Input::Mouse(*across, WM_MOUSEMOVE, 3, 90);  // the bar is where the cursor is
  EXPECT_EQ(across->Length(), 120);
  EXPECT_EQ(done_, 0);
  Input::Mouse(*across, WM_LBUTTONUP, 3, 50, 0);
  Input::Click(*across, 3, 50);
  EXPECT_EQ(events_ * 10 + done_, 11);
  Input::Key(*across, VK_RIGHT);
  EXPECT_EQ(across->Length(), 120 - TmyApplication::Get().Theme().Step());
  Input::Key(*across, VK_DOWN);
  Input::Drag(*across, 3, 50, 900, 50);
  EXPECT_EQ(across->Length(), 30);
  EXPECT_EQ(events_ * 10 + done_, 33);
}

TEST_F(TmySplitterTest, MayBeDestroyedByItsOwnersHandlers) {
  for (const bool byKey : {false, true}) {
    if (!window_) window_ = new InputWindow;
    auto* splitter = new TmySplitter(*window_);
    Watch(*splitter);
    destroyInEvent_ = true;
    byKey ? Input::Key(*splitter, VK_DOWN) : Input::Drag(*splitter, 3, 3, 3, 20);
    EXPECT_EQ(window_, nullptr);
  }
  EXPECT_EQ(done_, 0);
}

}  // namespace

#include "toolkit/TmySplitter.h"

#include "tests/toolkit/ControlFixture.h"

using SplitterGeometry::Keeps;

TEST(SplitterGeometry, GivesTheKeptSideItsLengthWithinTheLeastOnes) {
  const std::tuple<int, Keeps, int, int, int> kCases[] = {
      // total, kept, wanted; first, second
      {300, Keeps::kFirst, -5, 20, 270}, {300, Keeps::kFirst, 999, 260, 30}, {300, Keeps::kSecond, 999, 20, 270},
      {300, Keeps::kSecond, 0, 260, 30}, {50, Keeps::kFirst, 35, 10, 30},    {25, Keeps::kFirst, 35, 0, 15},
      {5, Keeps::kSecond, 35, 0, 0},
  };
  for (const auto& [total, keeps, wanted, first, second] : kCases) {
    const SplitterGeometry::Parts parts = SplitterGeometry::Divided({total, 10, 20, 30}, keeps, wanted);
    EXPECT_EQ(std::pair(parts.first, parts.second), std::pair(first, second)) << total << " with " << wanted;
  }
}

struct TmySplitterTest : ControlFixture {
  template <class Splitter>
  Splitter* Make() {
    auto* splitter = new Splitter(*window_, Keeps::kSecond);
    splitter->SetLeast(20, 30);
    splitter->SetLength(100);
    Listen(splitter->moved);
    splitter->Place({10, 10, 310, 210});
    return splitter;
  }
};

TEST_F(TmySplitterTest, IsDraggedAndMovedByKeysAndMayBeDestroyedInItsEvent) {
  auto* splitter = Make<TmySplitter2>();
  EXPECT_EQ(splitter->Second().left, 210);
  EXPECT_EQ(splitter->First().right, splitter->Bounds().left);
  Input::Mouse(*splitter, WM_LBUTTONDOWN, 3, 50);
  Input::Mouse(*splitter, WM_MOUSEMOVE, -17, 50);
  Input::Mouse(*splitter, WM_MOUSEMOVE, 3, 90);  // the bar is where the cursor is
  EXPECT_EQ(splitter->Length(), 120);
  Input::Mouse(*splitter, WM_LBUTTONUP, 3, 50, 0);
  Input::Click(*splitter, 3, 50);
  EXPECT_EQ(events_, 1);
  Input::Key(*splitter, VK_RIGHT);
  EXPECT_EQ(splitter->Length(), 120 - TmyApplication::Get().Theme().Step());
  Input::Key(*splitter, VK_DOWN);
  Input::Drag(*splitter, 3, 50, 900, 50);
  EXPECT_EQ(splitter->Length(), 30);
  EXPECT_EQ(events_, 3);
  auto* upDown = Make<TmySplitter>();
  Input::Key(*upDown, VK_UP);
  EXPECT_EQ(upDown->Length(), 100 + TmyApplication::Get().Theme().Step());
  CloseDuring([upDown] { Input::Drag(*upDown, 3, 3, 3, 20); });
}

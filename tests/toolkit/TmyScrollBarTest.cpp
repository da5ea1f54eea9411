#include "toolkit/TmyScrollBar.h"

#include "tests/toolkit/ControlFixture.h"

using Direction = TmyScrollBar::Direction;

TEST(ScrollGeometry, AThumbCanBeGrabbedStaysWhereItIsDroppedAndReachesTheEnd) {
  using namespace ScrollGeometry;
  constexpr int kTrack = 300, kMinimum = 20;
  for (Range range : {Range{400, 20, 0}, Range{9611, 30, 0}, Range{int64_t{1} << 40, 100, 0}}) {
    const int length = ThumbOf(range, kTrack, kMinimum).length;
    EXPECT_GE(length, kMinimum);
    for (int begin = 0; begin <= kTrack - length; ++begin) {
      range.position = PositionAt(range, kTrack, kMinimum, begin);
      EXPECT_EQ(ThumbOf(range, kTrack, kMinimum).begin, begin) << range.total;
    }
    EXPECT_EQ(range.position, MaxPosition(range));
  }
  EXPECT_EQ(ThumbOf({100, 50, 0}, kMinimum, kMinimum).length, 0) << "no room";
  EXPECT_EQ(ThumbOf({100, 100, 0}, kTrack, kMinimum).length, 0) << "nothing to scroll";
}

// A track of 200 pixels with half of it thumb: two units a pixel.
struct ScrollBarTest : ControlFixture {
  TmyScrollBar* Make(Direction direction) {
    auto* bar = new TmyScrollBar(*window_, direction);
    direction == Direction::kVertical ? bar->SetBounds(0, 0, 14, 200) : bar->SetBounds(0, 0, 200, 14);
    bar->Show(true);
    bar->SetRange(400, 200);
    Listen(bar->scrolled);
    return bar;
  }

  TmyScrollBar* bar_ = Make(Direction::kVertical);
};

TEST_F(ScrollBarTest, DragsTheThumb) {
  bar_->SetPosition(1);
  Input::Mouse(*bar_, WM_LBUTTONDOWN, 5, 10);
  for (const auto& [y, position] : {std::pair{10, 1}, {35, 50}, {999, 200}}) {  // at first it has not moved
    Input::Mouse(*bar_, WM_MOUSEMOVE, 300, y);
    EXPECT_EQ(bar_->Position(), position);
  }
  EXPECT_EQ(events_, 2);
  Input::Mouse(*bar_, WM_MOUSEMOVE, 5, 20, 0);  // the button went up elsewhere
  EXPECT_EQ(bar_->Position(), 200);
  TmyScrollBar* horizontal = Make(Direction::kHorizontal);
  Input::Drag(*horizontal, 10, 5, 35, 150);
  EXPECT_EQ(horizontal->Position(), 50);
}

TEST_F(ScrollBarTest, PagesInTheTrackUntilTheThumbIsUnderTheCursor) {
  bar_->SetRange(2000, 200);
  bar_->SetLine(20);
  window_->TakeFocus();
  Input::Mouse(*bar_, WM_LBUTTONDOWN, 5, 100);
  EXPECT_EQ(bar_->Position(), 180);  // a page less a line
  for (int tick = 0; tick < 50; ++tick) Input::Tick(*bar_);
  EXPECT_NEAR(static_cast<double>(bar_->Position()), 900, 180);
  EXPECT_EQ(GetFocus(), window_->Handle());  // it leaves the focus to its owner
  CloseDuring([this] { Input::Click(*bar_, 5, 199); });
}

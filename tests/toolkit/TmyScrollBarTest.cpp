#include "toolkit/TmyScrollBar.h"

#include <gtest/gtest.h>

#include "tests/toolkit/InputWindow.h"

namespace {

using Direction = TmyScrollBar::Direction;

// A track of 200 pixels with half of it thumb: two units a pixel.
class ScrollBarTest : public testing::Test {
 protected:
  ScrollBarTest() : window_(new InputWindow), bar_(Make(Direction::kVertical)) {}
  ~ScrollBarTest() override {
    if (window_) window_->Destroy();
  }

  void SetUp() override { ASSERT_TRUE(bar_->IsAlive()) << "no windows: is there a display?"; }
  TmyScrollBar* Make(Direction direction) {
    auto* bar = new TmyScrollBar(*window_, direction);
    const int thickness = TmyScrollBar::Thickness();
    direction == Direction::kVertical ? bar->SetBounds(0, 0, thickness, 200) : bar->SetBounds(0, 0, 200, thickness);
    bar->Show(true);
    bar->SetRange(400, 200);
    bar->scrolled.Bind<&ScrollBarTest::Scrolled>(this);
    return bar;
  }
  void Scrolled(TmyScrollBar& bar) {
    ++events_;
    last_ = bar.Position();
    if (!destroyInEvent_) return;
    window_->Destroy();
    window_ = nullptr;
  }

  InputWindow* window_;
  TmyScrollBar* bar_;
  int events_ = 0;
  int64_t last_ = -1;
  bool destroyInEvent_ = false;
};

TEST_F(ScrollBarTest, DragsTheThumb) {
  bar_->SetPosition(1);
  Input::Mouse(*bar_, WM_LBUTTONDOWN, 5, 10, MK_LBUTTON);
  EXPECT_EQ(GetCapture(), bar_->Handle());
  Input::Mouse(*bar_, WM_MOUSEMOVE, 5, 10, MK_LBUTTON);
  EXPECT_EQ(bar_->Position(), 1);  // the thumb has not moved
  Input::Mouse(*bar_, WM_MOUSEMOVE, 300, 35, MK_LBUTTON);
  EXPECT_EQ(last_, 50);
  Input::Mouse(*bar_, WM_MOUSEMOVE, 5, 999, MK_LBUTTON);
  EXPECT_EQ(last_, 200);
  EXPECT_EQ(events_, 2);
  Input::Mouse(*bar_, WM_LBUTTONUP, 5, 999);
  EXPECT_FALSE(bar_->IsDragging());
  Input::Mouse(*bar_, WM_MOUSEMOVE, 5, 20);
  EXPECT_EQ(bar_->Position(), 200);
}

TEST_F(ScrollBarTest, EndsADragWhoseButtonWentUpElsewhere) {
  Input::Mouse(*bar_, WM_LBUTTONDOWN, 5, 10, MK_LBUTTON);
  Input::Mouse(*bar_, WM_MOUSEMOVE, 5, 90);
  EXPECT_FALSE(bar_->IsDragging());
  EXPECT_EQ(bar_->Position(), 0);
}

TEST_F(ScrollBarTest, DragsAlongItsOwnDirection) {
  bar_->Destroy();
  bar_ = Make(Direction::kHorizontal);
  Input::Drag(*bar_, 10, 5, 35, 150);
  EXPECT_EQ(bar_->Position(), 50);
}

TEST_F(ScrollBarTest, PagesInTheTrackUntilTheThumbIsUnderTheCursor) {
  bar_->SetRange(2000, 200);
  bar_->SetLine(20);
  Input::Mouse(*bar_, WM_LBUTTONDOWN, 5, 100, MK_LBUTTON);
  EXPECT_EQ(bar_->Position(), 180);  // a page less a line
  for (int tick = 0; tick < 50; ++tick) SendMessageA(bar_->Handle(), WM_TIMER, 1, 0);
  const int64_t held = bar_->Position();
  EXPECT_GE(held, 720);
  EXPECT_LE(held, 1080);
  Input::Mouse(*bar_, WM_LBUTTONUP, 5, 100);
  SendMessageA(bar_->Handle(), WM_TIMER, 1, 0);
  EXPECT_EQ(bar_->Position(), held);
  Input::Click(*bar_, 5, 0);
  EXPECT_EQ(bar_->Position(), held - 180);
}

TEST_F(ScrollBarTest, WheelMovesByTheUsersLines) {
  UINT lines = 0;
  SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  bar_->SetLine(10);
  Input::Wheel(*bar_, -2);
  EXPECT_EQ(bar_->Position(), 2 * 10 * static_cast<int>(lines));
  Input::Wheel(*bar_, 100);
  EXPECT_EQ(bar_->Position(), 0);
  EXPECT_EQ(events_, 2);
  Input::Wheel(*bar_, 1);
  EXPECT_EQ(events_, 2);  // nothing moved, nothing told
}

TEST_F(ScrollBarTest, KeepsThePositionInsideTheRange) {
  bar_->SetPosition(150);
  bar_->SetRange(300, 200);
  EXPECT_EQ(bar_->Position(), 100);
  bar_->SetRange(100, 200);
  EXPECT_EQ(bar_->Position(), 0);
  EXPECT_FALSE(bar_->CanScroll());
  Input::Click(*bar_, 5, 150);
  EXPECT_EQ(events_, 0);
}

TEST_F(ScrollBarTest, LeavesTheFocusToItsOwner) {
  window_->TakeFocus();
  Input::Click(*bar_, 5, 150);
  EXPECT_EQ(GetFocus(), window_->Handle());
  EXPECT_FALSE(bar_->CanFocus());
}

TEST_F(ScrollBarTest, MayBeDestroyedByWhatItTells) {
  const HWND handle = bar_->Handle();
  destroyInEvent_ = true;
  Input::Mouse(*bar_, WM_LBUTTONDOWN, 5, 150, MK_LBUTTON);
  EXPECT_EQ(events_, 1);
  EXPECT_FALSE(IsWindow(handle));
}

}  // namespace

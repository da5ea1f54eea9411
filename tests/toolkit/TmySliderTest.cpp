#include "toolkit/TmySlider.h"

#include "tests/toolkit/ControlFixture.h"

namespace {

class TmySliderTest : public ControlFixture {
 protected:
  TmySliderTest() {
    slider_->SetBounds(0, 0, 216, TmySlider::PreferredHeight());
    slider_->SetRange(1000);
    slider_->SetSteps(10, 100);
    slider_->moved.Bind<&TmySliderTest::Moved>(this);
  }
  void Moved(TmySlider& slider) {
    if (slider.IsDragging()) ++dragging_;
    Tell();
  }

  TmySlider* slider_ = new TmySlider(*window_, "Position");  // belongs to its window
  int dragging_ = 0;
};

TEST_F(TmySliderTest, KeysMoveItAndTellItsOwnerOnlyWhenItMoved) {
  const struct {
    uint32_t key;
    int64_t to;
    int events;
  } kCases[] = {{VK_LEFT, 490, 1}, {VK_RIGHT, 510, 1}, {VK_DOWN, 490, 1}, {VK_UP, 510, 1},   {VK_PRIOR, 400, 1},
                {VK_NEXT, 600, 1}, {VK_HOME, 0, 1},    {VK_END, 1000, 1}, {VK_SPACE, 500, 0}};
  for (const auto& each : kCases) {
    slider_->SetPosition(500);
    events_ = 0;
    Input::Key(*slider_, each.key);
    Input::Key(*slider_, VK_F9);
    EXPECT_EQ(slider_->Position(), each.to) << each.key;
    EXPECT_EQ(events_, each.events) << each.key;
  }
  slider_->SetPosition(5000);
  Input::Key(*slider_, VK_END);
  EXPECT_EQ(slider_->Position(), 1000);
  EXPECT_EQ(events_, 0);
}

TEST_F(TmySliderTest, AClickTakesTheThumbThereAndADragEndsWithOneMoreEvent) {
  Input::Mouse(*slider_, WM_LBUTTONDOWN, 108, 8);
  EXPECT_NEAR(static_cast<double>(slider_->Position()), 500, 5);
  Input::Mouse(*slider_, WM_MOUSEMOVE, 900, 8);
  Input::Mouse(*slider_, WM_LBUTTONUP, 900, 8, 0);
  EXPECT_EQ(slider_->Position(), 1000);
  EXPECT_EQ(dragging_, 2);
  EXPECT_EQ(events_, 3);
  Input::Mouse(*slider_, WM_MOUSEMOVE, 0, 8, 0);
  EXPECT_EQ(slider_->Position(), 1000);
}

TEST_F(TmySliderTest, ItsWindowMayGoInTheEvent) {
  destroyInEvent_ = true;
  Input::Click(*slider_, 150, 8);
  EXPECT_EQ(window_, nullptr);
}

}  // namespace

#include "toolkit/TmySlider.h"

#include "tests/toolkit/ControlFixture.h"

class TmySliderTest : public ControlFixture {};

TEST_F(TmySliderTest, KeysClicksAndDragsTellTheOwnerUntilItsWindowGoes) {
  auto* slider = new TmySlider(*window_, "Position");  // belongs to its window
  slider->SetBounds(0, 0, 216, TmySlider::PreferredHeight());
  slider->SetRange(1000);
  slider->SetSteps(10, 100);
  Listen(slider->moved);
  const std::pair<uint32_t, int64_t> kKeys[] = {{VK_LEFT, 490}, {VK_UP, 510},   {VK_PRIOR, 400}, {VK_NEXT, 600},
                                                {VK_HOME, 0},   {VK_END, 1000}, {VK_F9, 500}};
  for (const auto& [key, to] : kKeys) {
    slider->SetPosition(500);
    Input::Key(*slider, key);
    EXPECT_EQ(slider->Position(), to) << key;
  }
  EXPECT_EQ(events_, 6);
  Input::Mouse(*slider, WM_LBUTTONDOWN, 8, 8);
  EXPECT_LT(slider->Position(), 10);
  Input::Mouse(*slider, WM_MOUSEMOVE, 900, 8);
  EXPECT_EQ(slider->Position(), 1000);
  EXPECT_EQ(events_, 8);
  CloseDuring([&] { Input::Mouse(*slider, WM_LBUTTONUP, 900, 8, 0); });  // the drag ends with one more event
}

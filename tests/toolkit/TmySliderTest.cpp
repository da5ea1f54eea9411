#include "toolkit/TmySlider.h"

#include "tests/toolkit/ControlFixture.h"

using TmySliderTest = ControlFixture;

// Clicks and drags are those of the player's test.
TEST_F(TmySliderTest, KeysTellTheOwnerUntilItsWindowGoes) {
  auto* slider = new TmySlider(*window_, "Position");  // belongs to its window
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
  CloseDuring([slider] { Input::Key(*slider, VK_HOME); });
}

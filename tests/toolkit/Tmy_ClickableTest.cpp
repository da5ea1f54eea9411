// What buttons and check boxes share; what each of them shows is in the gallery.
#include "toolkit/Tmy_Clickable.h"

#include "tests/toolkit/ControlFixture.h"
#include "toolkit/Tmy_Btn.h"
#include "toolkit/Tmy_CheckBox.h"

struct Tmy_ClickableTest : ControlFixture {
  Tmy_ClickableTest() {
    Place(button_, button_.PreferredSize());
    Place(box_, box_.PreferredSize());
    Listen(button_.clicked);
    Listen(box_.clicked);
  }

  Tmy_Btn button_{*window_, "&New task"};
  Tmy_CheckBox box_{*window_, "Frequency"};
};

TEST_F(Tmy_ClickableTest, ClicksWhenTheMouseGoesUpInside) {
  Input::Drag(*window_, 12, 12, 300, 300);
  Input::Drag(*window_, 300, 300, 12, 12);
  EXPECT_EQ(events_, 0);
  Input::Click(*window_, 12, 12);
  EXPECT_EQ(events_, 1);
}

TEST_F(Tmy_ClickableTest, SpaceAndEnterPressAButtonOnceWhileHeldUnlessItIsDisabled) {
  Focus(button_);
  for (const LPARAM flags : {1, 0x40000001}) {
    for (const uint32_t key : {VK_SPACE, VK_RETURN, int{'X'}}) Input::Key(*window_, key, 0, flags);
  }
  EXPECT_EQ(events_, 2);
  button_.Enable(false);
  Click(button_);
  Input::Key(*window_, VK_SPACE);
  button_.Press();
  EXPECT_EQ(events_, 2);
  button_.Enable(true);
  CloseDuring([this] { Input::Key(*window_, VK_SPACE); });
}

TEST_F(Tmy_ClickableTest, TheUserTogglesABoxAndTheProgramSetsItQuietly) {
  Click(box_);
  EXPECT_TRUE(box_.IsChecked());
  Focus(box_);
  Input::Key(*window_, VK_SPACE);
  EXPECT_FALSE(box_.IsChecked());
  box_.SetChecked(true);
  EXPECT_EQ(events_, 2);
}

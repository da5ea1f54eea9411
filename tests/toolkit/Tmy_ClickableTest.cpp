// What buttons and check boxes share, and what each of them shows.
#include "toolkit/Tmy_Clickable.h"

#include "tests/toolkit/ControlFixture.h"
#include "toolkit/Tmy_Btn.h"
#include "toolkit/Tmy_CheckBox.h"

struct Tmy_ClickableTest : ControlFixture {
  Tmy_ClickableTest() {
    Place(button_, button_.PreferredSize());
    Place(box_, box_.PreferredSize());
    Listen(button_.clicked);
    box_.clicked.Bind<&Tmy_ClickableTest::Toggled>(this);
  }
  void Toggled(Tmy_CheckBox& box) { told_ += box.IsChecked() ? "on " : "off "; }

  Tmy_Btn button_{*window_, "&New task"};
  Tmy_CheckBox box_{*window_, "Frequency"};
  std::string told_;
};

TEST_F(Tmy_ClickableTest, ClicksWhenTheMouseGoesUpInside) {
  Input::Drag(*window_, 12, 12, 300, 300);
  Input::Drag(*window_, 300, 300, 12, 12);
  EXPECT_EQ(events_, 0);
  Input::Mouse(*window_, WM_LBUTTONDOWN, 12, 12);
  Input::Mouse(*window_, WM_MOUSEMOVE, 300, 300);
  Input::Drag(*window_, 12, 12, 12, 12);
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

TEST_F(Tmy_ClickableTest, TheUserTogglesABoxTheProgramSetsItQuietlyAndItShows) {
  EXPECT_EQ(Accent(box_), 0);
  Click(box_);
  window_->FocusDrawn(nullptr);
  EXPECT_GT(Accent(box_), 50);
  Focus(box_);
  Input::Key(*window_, VK_SPACE);
  box_.SetChecked(true);
  EXPECT_EQ(told_, "on off ");
}

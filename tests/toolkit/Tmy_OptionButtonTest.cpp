#include "toolkit/Tmy_OptionButton.h"

#include "tests/toolkit/ControlFixture.h"
#include "toolkit/Tmy_CheckBox.h"

// A and B are one group, whatever stands between them; C and D another; E has the first one's number again.
struct Tmy_OptionButtonTest : ControlFixture {
  Tmy_OptionButtonTest() {
    for (Tmy_OptionButton* option : {&a_, &b_, &c_, &d_, &e_}) {
      Place(*option, option->PreferredSize());
      option->clicked.Bind<&Tmy_OptionButtonTest::Clicked>(this);
    }
  }
  void Clicked(Tmy_OptionButton& option) { clicked_ += option.Caption().Chars(); }
  std::string Those(bool (Tmy_OptionButton::*are)() const) const {
    std::string names;
    for (const Tmy_OptionButton* option : {&a_, &b_, &c_, &d_, &e_}) {
      if ((option->*are)()) names += option->Caption().Chars();
    }
    return names;
  }
  std::string Checked() const { return Those(&Tmy_OptionButton::IsChecked); }
  std::string Stops() const { return Those(&Tmy_OptionButton::CanFocus); }

  Tmy_OptionButton a_{*window_, "A", 1};
  Tmy_CheckBox between_{*window_, "between"};
  Tmy_OptionButton b_{*window_, "B", 1}, c_{*window_, "C", 2}, d_{*window_, "D", 2}, e_{*window_, "E", 1};
  std::string clicked_;
};

TEST_F(Tmy_OptionButtonTest, ChoosingOneUnchecksItsGroupOnly) {
  for (Tmy_OptionButton* option : {&a_, &d_, &e_}) option->SetChecked(true);
  for (const Tmy_OptionButton* option : {&b_, &c_, &c_}) Click(*option);  // one of them chosen already
  EXPECT_EQ(Checked(), "BCE");
  EXPECT_EQ(clicked_, "BCC");
}

TEST_F(Tmy_OptionButtonTest, ArrowsMoveWithinTheGroupAndChoose) {
  a_.SetChecked(true);
  Focus(a_);
  for (const uint32_t key : {VK_DOWN, VK_RIGHT, VK_LEFT, VK_UP}) Input::Key(*window_, key);  // around the ends
  EXPECT_EQ(Checked(), "A");
  b_.Enable(false);
  Input::Key(*window_, VK_DOWN);  // nobody else to go to
  Input::Key(*window_, VK_SPACE);
  EXPECT_EQ(clicked_, "BABAA");
}

TEST_F(Tmy_OptionButtonTest, AGroupIsOneStopForTab) {
  EXPECT_EQ(Stops(), "ACE");
  b_.SetChecked(true);
  EXPECT_EQ(Stops(), "BCE");
  b_.Enable(false);  // the group must stay reachable
  EXPECT_EQ(Stops(), "ACE");
  a_.Show(false);
  Click(d_);
  EXPECT_EQ(Stops(), "DE");
  Input::Key(*window_, VK_TAB);
  EXPECT_TRUE(e_.HasFocus());
}

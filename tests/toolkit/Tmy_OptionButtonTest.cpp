#include "toolkit/Tmy_OptionButton.h"

#include <string>

#include "tests/toolkit/DrawnFixture.h"
#include "toolkit/Tmy_CheckBox.h"

namespace {

// A and B are one group, whatever stands between them; C and D another; E has the first one's number again.
class Tmy_OptionButtonTest : public DrawnFixture {
 protected:
  Tmy_OptionButtonTest() {
    for (Tmy_OptionButton* option : All()) {
      Place(*option);
      option->clicked.Bind<&Tmy_OptionButtonTest::Clicked>(this);
    }
  }
  std::vector<Tmy_OptionButton*> All() { return {&a_, &b_, &c_, &d_, &e_}; }
  void Clicked(Tmy_OptionButton& option) { clicked_ += option.Caption().Chars(); }
  std::string Checked() {
    std::string names;
    for (const Tmy_OptionButton* option : All()) names += option->IsChecked() ? option->Caption().Chars() : "";
    return names;
  }
  std::string Stops() {
    std::string names;
    for (const Tmy_OptionButton* option : All()) names += option->CanFocus() ? option->Caption().Chars() : "";
    return names;
  }

  Tmy_OptionButton a_{*window_, "A", 1};
  Tmy_CheckBox between_{*window_, "between"};
  Tmy_OptionButton b_{*window_, "B", 1};
  Tmy_OptionButton c_{*window_, "C", 2};
  Tmy_OptionButton d_{*window_, "D", 2};
  Tmy_OptionButton e_{*window_, "E", 1};
  std::string clicked_;
};

TEST_F(Tmy_OptionButtonTest, ChoosingOneUnchecksItsGroupOnly) {
  for (Tmy_OptionButton* option : {&a_, &d_, &e_}) option->SetChecked(true);
  EXPECT_EQ(Checked(), "ADE");
  EXPECT_EQ(clicked_, "");
  Click(b_);
  Click(c_);
  EXPECT_EQ(Checked(), "BCE");
  Click(c_);  // chosen already
  EXPECT_EQ(clicked_, "BCC");
  c_.SetChecked(false);
  EXPECT_EQ(Checked(), "BE");
  b_.Enable(false);
  Click(b_);
  EXPECT_EQ(clicked_, "BCC");
}

TEST_F(Tmy_OptionButtonTest, ArrowsMoveWithinTheGroupAndChoose) {
  a_.SetChecked(true);
  Focus(a_);
  Key(VK_DOWN);
  EXPECT_TRUE(b_.HasFocus());
  Key(VK_RIGHT);  // around the end
  EXPECT_TRUE(a_.HasFocus());
  Key(VK_LEFT);
  Key(VK_UP);
  EXPECT_EQ(Checked(), "A");
  EXPECT_EQ(clicked_, "BABA");
  b_.Enable(false);
  Key(VK_DOWN);  // nobody else to go to
  Key(VK_SPACE);
  EXPECT_EQ(clicked_, "BABAA");
  EXPECT_EQ(Checked(), "A");
}

TEST_F(Tmy_OptionButtonTest, AGroupIsOneStopForTab) {
  EXPECT_EQ(Stops(), "ACE");
  b_.SetChecked(true);
  EXPECT_EQ(Stops(), "BCE");
  b_.Enable(false);  // the group must stay reachable
  EXPECT_EQ(Stops(), "ACE");
  a_.Show(false);
  EXPECT_EQ(Stops(), "CE");
  Click(d_);
  EXPECT_TRUE(d_.HasFocus());
  EXPECT_EQ(Stops(), "DE");
  Key(VK_TAB);
  EXPECT_TRUE(e_.HasFocus());
}

TEST_F(Tmy_OptionButtonTest, ShowsItsStateAndTheFocus) {
  EXPECT_EQ(Accent(a_), 0);
  a_.SetChecked(true);
  const int checked = Accent(a_);
  EXPECT_GT(checked, 10);
  Focus(a_);
  EXPECT_GT(Accent(a_), checked + 20);
}

}  // namespace

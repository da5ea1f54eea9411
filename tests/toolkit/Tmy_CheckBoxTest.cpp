#include "toolkit/Tmy_CheckBox.h"

#include "tests/toolkit/DrawnFixture.h"

namespace {

class Tmy_CheckBoxTest : public DrawnFixture {
 protected:
  Tmy_CheckBoxTest() {
    Place(box_);
    box_.clicked.Bind<&Tmy_CheckBoxTest::Clicked>(this);
  }
  void Clicked(Tmy_CheckBox& box) {
    ++clicks_;
    checkedInEvent_ = box.IsChecked();
  }

  Tmy_CheckBox box_{*window_, "Frequency"};
  int clicks_ = 0;
  bool checkedInEvent_ = false;
};

TEST_F(Tmy_CheckBoxTest, TheUserTogglesItAndTheProgramSetsItQuietly) {
  Click(box_);
  EXPECT_TRUE(box_.IsChecked() && checkedInEvent_);
  Focus(box_);
  Key(VK_SPACE);
  EXPECT_FALSE(box_.IsChecked() || checkedInEvent_);
  Key(VK_SPACE, 0x40000001);  // held
  EXPECT_EQ(clicks_, 2);
  box_.SetChecked(true);
  EXPECT_TRUE(box_.IsChecked());
  EXPECT_EQ(clicks_, 2);
  box_.Enable(false);
  Click(box_);
  EXPECT_TRUE(box_.IsChecked());
}

TEST_F(Tmy_CheckBoxTest, ShowsItsStateAndTheFocus) {
  const TmyTheme::Colors& color = TmyApplication::Get().Theme().Color();
  EXPECT_EQ(Accent(box_), 0);
  box_.SetChecked(true);
  const int checked = Accent(box_);
  EXPECT_GT(checked, 50);
  EXPECT_GT(Pixels(box_, color.accentText), 5);  // the mark
  Focus(box_);
  EXPECT_GT(Accent(box_), checked + 60);
  box_.Enable(false);
  window_->FocusDrawn(nullptr);
  EXPECT_EQ(Accent(box_), 0);
}

TEST_F(Tmy_CheckBoxTest, AWiderCaptionAsksForMoreRoom) {
  const int before = box_.PreferredWidth();
  const TmyTheme& theme = TmyApplication::Get().Theme();
  box_.SetCaption("Frequency and more");
  EXPECT_EQ(box_.PreferredWidth() - before, theme.TextWidth("Frequency and more") - theme.TextWidth("Frequency"));
  box_.SetCaption("");
  EXPECT_EQ(box_.PreferredWidth(), theme.Scaled(13));
}

}  // namespace

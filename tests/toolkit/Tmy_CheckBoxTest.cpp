#include "toolkit/Tmy_CheckBox.h"

#include "tests/toolkit/ControlFixture.h"

namespace {

class Tmy_CheckBoxTest : public ControlFixture {
 public:
  void Clicked(Tmy_CheckBox& box) {
    Tell();
    EXPECT_EQ(box.IsChecked(), events_ == 1);
  }
};

TEST_F(Tmy_CheckBoxTest, TheUserTogglesItTheProgramSetsItQuietlyAndItShows) {
  Tmy_CheckBox box(*window_, "Frequency");
  Place(box, box.PreferredSize());
  box.clicked.Bind<&Tmy_CheckBoxTest::Clicked>(this);
  EXPECT_EQ(Accent(box), 0);
  Click(box);
  window_->FocusDrawn(nullptr);
  const int checked = Accent(box);
  EXPECT_GT(checked, 50);
  Focus(box);
  EXPECT_GT(Accent(box), checked + 60);
  Input::Key(*window_, VK_SPACE);
  Input::Key(*window_, VK_SPACE, 0, 0x40000001);  // held
  EXPECT_EQ(events_, 2);
  EXPECT_FALSE(box.IsChecked());
  box.SetChecked(true);
  box.Enable(false);
  Click(box);
  EXPECT_TRUE(box.IsChecked());
  EXPECT_EQ(events_, 2);
}

}  // namespace

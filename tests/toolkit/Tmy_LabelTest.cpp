#include "toolkit/Tmy_Label.h"

#include "tests/toolkit/DrawnFixture.h"

namespace {

using Tmy_LabelTest = DrawnFixture;

TEST_F(Tmy_LabelTest, ColourAndPlaceFollowItsState) {
  const TmyTheme::Colors& color = TmyApplication::Get().Theme().Color();
  Tmy_Label label(*window_, "HHHH");
  Tmy_Label left(*window_), right(*window_);  // the halves of the first one: only to count in
  label.SetBounds(0, 0, 200, 30);
  left.SetBounds(0, 0, 100, 30);
  right.SetBounds(100, 0, 100, 30);
  EXPECT_GT(Pixels(left, color.text), 0);
  EXPECT_EQ(Pixels(right, color.text), 0);
  label.SetAlign(Tmy_Label::Align::kRight);
  EXPECT_EQ(Pixels(left, color.text), 0);
  label.SetSecondary(true);
  EXPECT_GT(Pixels(right, color.secondary), 0);
  label.Enable(false);
  EXPECT_EQ(Pixels(right, color.secondary), 0);
  EXPECT_GT(Pixels(right, color.disabled), 0);
}

}  // namespace

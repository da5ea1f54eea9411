#include "toolkit/Tmy_Label.h"

#include "tests/toolkit/DrawnFixture.h"

namespace {

using Tmy_LabelTest = DrawnFixture;

TEST_F(Tmy_LabelTest, ColourAndPlaceFollowItsState) {
  Tmy_Label label(*window_, "HHHH");
  Tmy_Label left(*window_), right(*window_);  // the halves of the first one: only to count in
  label.SetBounds(0, 0, 200, 30);
  left.SetBounds(0, 0, 100, 30);
  right.SetBounds(100, 0, 100, 30);
  const int plain = Contrast(left);
  EXPECT_GT(plain, 0);
  EXPECT_EQ(Contrast(right), 0);
  label.SetAlign(Tmy_Label::Align::kRight);
  EXPECT_EQ(Contrast(left), 0);
  label.SetSecondary(true);
  const int secondary = Contrast(right);
  EXPECT_LT(secondary, plain);
  label.Enable(false);
  EXPECT_LT(Contrast(right), secondary);
  EXPECT_GT(Contrast(right), 0);
}

}  // namespace

#include "toolkit/TmyUpDown.h"

#include "tests/toolkit/EditFixture.h"

struct TmyUpDownTest : EditFixture {
  TmyUpDownTest() {
    upDown_->SetBounds(130, 10, 16, 24);
    upDown_->Show(true);
    Listen(edit_->changed);
    SetFocus(window_->Handle());
  }

  TmyIntEdit* edit_ = Make<TmyIntEdit>(int64_t{0}, int64_t{4});
  TmyUpDown* upDown_ = new TmyUpDown(*window_, *edit_);
};

TEST_F(TmyUpDownTest, StepsAgainAndAgainWhileTheCursorIsOnTheHalfThatIsHeld) {
  Input::Mouse(*upDown_, WM_LBUTTONDOWN, 5, 4);
  EXPECT_EQ(GetFocus(), edit_->Handle());
  for (const int y : {4, 20, 4}) {  // once on the other half
    Input::Mouse(*upDown_, WM_MOUSEMOVE, 5, y);
    Input::Tick(*upDown_);
  }
  Input::Mouse(*upDown_, WM_LBUTTONUP, 5, 4, 0);
  Input::Tick(*upDown_);
  EXPECT_EQ(edit_->Value(), 3);
  Input::Click(*upDown_, 5, 20);
  for (const int notches : {2, 1, 1}) Input::Wheel(*upDown_, notches);
  EXPECT_EQ(edit_->Value(), 4);
  EXPECT_EQ(events_, 5) << "a step that changes nothing tells nothing";
  edit_->SetValue(0);
  CloseDuring([this] { Input::Mouse(*upDown_, WM_LBUTTONDOWN, 5, 4); });
}

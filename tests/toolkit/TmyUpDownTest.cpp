#include "toolkit/TmyUpDown.h"

#include "tests/toolkit/EditFixture.h"

namespace {

class TmyUpDownTest : public EditFixture {
 protected:
  TmyUpDownTest() {
    upDown_->SetBounds(130, 10, 16, 24);
    upDown_->Show(true);
    edit_->changed.Bind<&TmyUpDownTest::Stepped>(this);
    SetFocus(window_->Handle());
  }
  void Stepped(TmyEdit&) { Tell(); }

  TmyIntEdit* edit_ = Make<TmyIntEdit>(int64_t{0}, int64_t{6});
  TmyUpDown* upDown_ = new TmyUpDown(*window_, *edit_);
};

TEST_F(TmyUpDownTest, StepsAgainAndAgainWhileTheCursorIsOnTheHalfThatIsHeld) {
  Input::Mouse(*upDown_, WM_LBUTTONDOWN, 5, 4);
  EXPECT_EQ(GetFocus(), edit_->Handle());
  EXPECT_EQ(edit_->Value(), 1);
  const auto tick = [this] { SendMessageA(upDown_->Handle(), WM_TIMER, 1, 0); };
  tick();
  tick();
  Input::Mouse(*upDown_, WM_MOUSEMOVE, 5, 20);  // the other half
  tick();
  EXPECT_EQ(edit_->Value(), 3);
  Input::Mouse(*upDown_, WM_MOUSEMOVE, 5, 4);
  tick();
  Input::Mouse(*upDown_, WM_LBUTTONUP, 5, 4, 0);
  tick();
  EXPECT_EQ(edit_->Value(), 4);
  Input::Click(*upDown_, 5, 20);
  Input::Wheel(*upDown_, 1);
  Input::Wheel(*upDown_, 1);
  EXPECT_EQ(edit_->Value(), 5);
  for (int i = 0; i < 3; ++i) Input::Click(*upDown_, 5, 4);
  EXPECT_EQ(edit_->Value(), 6);
  EXPECT_EQ(events_, 8) << "a step that changes nothing tells nothing";
}

TEST_F(TmyUpDownTest, EndsWithItsWindow) {
  destroyInEvent_ = true;
  Input::Mouse(*upDown_, WM_LBUTTONDOWN, 5, 4);
  EXPECT_EQ(window_, nullptr);
}

}  // namespace

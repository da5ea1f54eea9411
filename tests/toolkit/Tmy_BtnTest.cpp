#include "toolkit/Tmy_Btn.h"

#include "tests/toolkit/DrawnFixture.h"

namespace {

class Tmy_BtnTest : public DrawnFixture {
 protected:
  Tmy_BtnTest() { button_.clicked.Bind<&Tmy_BtnTest::Clicked>(this); }
  void Clicked(Tmy_Btn&) {
    ++clicks_;
    if (!destroyInClick_) return;
    window_->Destroy();
    window_ = nullptr;
  }
  void Mouse(UINT message, int x, int y) const { Input::Mouse(*window_, message, x, y, MK_LBUTTON); }

  Tmy_Btn before_{*window_, "Before"};
  Tmy_Btn button_{*window_, "&New task"};
  int clicks_ = 0;
  bool destroyInClick_ = false;
};

TEST_F(Tmy_BtnTest, ClicksWhenTheMouseGoesUpInside) {
  Place(button_);
  Click(button_);
  EXPECT_EQ(clicks_, 1);
  Mouse(WM_LBUTTONDOWN, 12, 12);
  Mouse(WM_LBUTTONUP, 300, 300);
  EXPECT_EQ(clicks_, 1);
  Mouse(WM_LBUTTONDOWN, 12, 12);
  Mouse(WM_MOUSEMOVE, 300, 300);
  Mouse(WM_MOUSEMOVE, 12, 12);
  Mouse(WM_LBUTTONUP, 12, 12);
  EXPECT_EQ(clicks_, 2);
  Mouse(WM_LBUTTONDOWN, 300, 300);  // one that began elsewhere
  Mouse(WM_LBUTTONUP, 12, 12);
  EXPECT_EQ(clicks_, 2);
}

TEST_F(Tmy_BtnTest, SpaceAndEnterPressItOnceWhileHeld) {
  Focus(Place(button_));
  Key(VK_SPACE);
  Key(VK_SPACE, 0x40000001);
  EXPECT_EQ(clicks_, 1);
  Key(VK_RETURN);
  Key(VK_RETURN, 0x40000001);
  EXPECT_EQ(clicks_, 2);
  Key('X');
  EXPECT_EQ(clicks_, 2);
}

TEST_F(Tmy_BtnTest, ADisabledOneTakesNothing) {
  Focus(Place(button_));
  button_.Enable(false);
  Click(button_);
  Key(VK_SPACE);
  button_.Press();
  EXPECT_EQ(clicks_, 0);
  button_.Enable(true);
  button_.Press();
  EXPECT_EQ(clicks_, 1);
}

TEST_F(Tmy_BtnTest, ItsWindowMayGoInsideTheClick) {
  Focus(Place(button_));
  destroyInClick_ = true;
  Key(VK_SPACE);
  EXPECT_EQ(clicks_, 1);
  EXPECT_EQ(window_, nullptr);
}

TEST_F(Tmy_BtnTest, ShowsFocusDefaultAndPress) {
  const TmyTheme::Colors& color = TmyApplication::Get().Theme().Color();
  Place(button_);
  EXPECT_EQ(Accent(button_), 0);
  button_.SetDefault(true);
  const int asDefault = Accent(button_);
  EXPECT_GT(asDefault, 3 * (button_.Width() + button_.Height()));  // two pixels around
  Focus(button_);
  EXPECT_GT(Accent(button_), asDefault);
  button_.Enable(false);
  window_->FocusDrawn(nullptr);
  EXPECT_EQ(Accent(button_), 0);
  button_.Enable(true);
  Mouse(WM_LBUTTONDOWN, 12, 12);
  EXPECT_GT(Pixels(button_, color.pressed), 0);
  Mouse(WM_MOUSEMOVE, 300, 300);
  EXPECT_EQ(Pixels(button_, color.pressed), 0);
  Mouse(WM_LBUTTONUP, 300, 300);
}

TEST_F(Tmy_BtnTest, TheMarkOfTheAccessKeyTakesNoRoom) {
  Tmy_Btn plain(*window_, "A long caption to measure"), marked(*window_, "A &long caption to measure"),
      two(*window_, "A && long caption to measure");
  EXPECT_EQ(marked.PreferredWidth(), plain.PreferredWidth());
  EXPECT_GT(two.PreferredWidth(), plain.PreferredWidth());
}

}  // namespace

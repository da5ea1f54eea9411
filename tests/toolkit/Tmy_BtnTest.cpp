#include "toolkit/Tmy_Btn.h"

#include "tests/toolkit/ControlFixture.h"

namespace {

class Tmy_BtnTest : public ControlFixture {
 protected:
  Tmy_BtnTest() {
    Place(button_, button_.PreferredSize());
    button_.clicked.Bind<&Tmy_BtnTest::Clicked>(this);
  }
  void Clicked(Tmy_Btn&) { Tell(); }

  Tmy_Btn before_{*window_, "Before"};
  Tmy_Btn button_{*window_, "&New task"};
};

TEST_F(Tmy_BtnTest, ClicksWhenTheMouseGoesUpInside) {
  Input::Drag(*window_, 12, 12, 300, 300);
  Input::Drag(*window_, 300, 300, 12, 12);
  EXPECT_EQ(events_, 0);
  Input::Mouse(*window_, WM_LBUTTONDOWN, 12, 12);
  Input::Mouse(*window_, WM_MOUSEMOVE, 300, 300);
  Input::Drag(*window_, 12, 12, 12, 12);
  EXPECT_EQ(events_, 1);
}

TEST_F(Tmy_BtnTest, SpaceAndEnterPressItOnceWhileHeldUnlessItIsDisabled) {
  Focus(button_);
  for (const uint32_t key : {uint32_t{VK_SPACE}, uint32_t{VK_RETURN}, uint32_t{'X'}}) {
    Input::Key(*window_, key);
    Input::Key(*window_, key, 0, 0x40000001);
  }
  EXPECT_EQ(events_, 2);
  button_.Enable(false);
  Click(button_);
  Input::Key(*window_, VK_SPACE);
  button_.Press();
  EXPECT_EQ(events_, 2);
}

TEST_F(Tmy_BtnTest, ItsWindowMayGoInsideTheClick) {
  Focus(button_);
  destroyInEvent_ = true;
  Input::Key(*window_, VK_SPACE);
  EXPECT_EQ(events_, 1);
}

TEST_F(Tmy_BtnTest, ShowsFocusDefaultAndPress) {
  const COLORREF pressed = TmyApplication::Get().Theme().Color().pressed;
  EXPECT_EQ(Accent(button_), 0);
  button_.SetDefault(true);
  const int asDefault = Accent(button_);
  EXPECT_GT(asDefault, 3 * (button_.Width() + button_.Height()));  // two pixels around
  Focus(button_);
  EXPECT_GT(Accent(button_), asDefault);
  Input::Mouse(*window_, WM_LBUTTONDOWN, 12, 12);
  EXPECT_GT(Colors(*window_, button_.Bounds())[pressed], 0);
  Input::Mouse(*window_, WM_MOUSEMOVE, 300, 300);
  EXPECT_EQ(Colors(*window_, button_.Bounds())[pressed], 0);
}

}  // namespace

// Marlux 3. What the tests of all controls share: a window, and real messages to a control in it.
#pragma once

#include "tests/support/Pump.h"
#include "tests/support/Test.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/myComponents.h"

struct InputWindow : TmyComponent {
  InputWindow() : TmyComponent("Input", WS_OVERLAPPEDWINDOW | WS_TABSTOP, 0, 0, 0, 640, 480, nullptr) { Show(true); }

  void MouseWheel(WPARAM, TmyComponent*) override { ++wheels; }
  void Escape() override { ++escapes; }
  void Confirm() override { ++confirms; }

  int wheels = 0;  // that a control did not use
  int escapes = 0;
  int confirms = 0;
};

namespace Input {

inline void Mouse(HWND window, UINT message, int x, int y, WPARAM keys = MK_LBUTTON) {
  SendMessageA(window, message, keys, MAKELPARAM(x, y));
}

inline void Mouse(const TmyComponent& control, UINT message, int x, int y, WPARAM keys = MK_LBUTTON) {
  Mouse(control.Handle(), message, x, y, keys);
}

// A control may be gone after any message, so its window is asked for once.
inline void Drag(const TmyComponent& control, int fromX, int fromY, int toX, int toY) {
  const HWND window = control.Handle();
  Mouse(window, WM_LBUTTONDOWN, fromX, fromY);
  Mouse(window, WM_MOUSEMOVE, toX, toY);
  Mouse(window, WM_LBUTTONUP, toX, toY, 0);
}

inline void Click(const TmyComponent& control, int x, int y, WPARAM keys = 0) {
  const HWND window = control.Handle();
  Mouse(window, WM_LBUTTONDOWN, x, y, keys | MK_LBUTTON);
  Mouse(window, WM_LBUTTONUP, x, y, keys);
}

inline void Wheel(const TmyComponent& control, int notches) {
  SendMessageA(control.Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA), 0);
}

// With Shift or Ctrl held, as the thread's key state says it.
inline void Key(const TmyComponent& control, uint32_t key, int modifier = 0, LPARAM flags = 1) {
  BYTE released[256] = {}, held[256] = {};
  if (modifier != 0) held[modifier] = 0x80;
  SetKeyboardState(held);
  SendMessageA(control.Handle(), WM_KEYDOWN, key, flags);
  SetKeyboardState(released);
}

inline void Type(const TmyComponent& control, std::string_view text) {
  const HWND window = control.Handle();
  for (const char c : text) SendMessageA(window, WM_CHAR, static_cast<uint8_t>(c), 1);
}

// In place of all that an edit field holds.
inline void Retype(const TmyComponent& field, std::string_view text) {
  SendMessageA(field.Handle(), EM_SETSEL, 0, -1);
  Type(field, text);
}

inline void Tick(const TmyComponent& control) {
  SendMessageA(control.Handle(), WM_TIMER, 1, 0);
}

}  // namespace Input

struct ControlFixture : testing::Test {
  ~ControlFixture() override { Close(); }
  void Close() {
    if (window_) std::exchange(window_, nullptr)->Destroy();
  }

  // What each handler of an event does: a control must survive what its owner does there.
  void Tell() {
    ++events_;
    if (destroyInEvent_) Close();
  }
  template <class... Arguments>
  void Raised(Arguments...) {
    Tell();
  }
  template <class... Arguments>
  void Listen(TmyEvent<Arguments...>& event) {
    event.template Bind<&ControlFixture::Raised<Arguments...>>(this);
  }
  // The action raises an event in which the owner closes the window. Then there is a new one, set up again.
  void CloseDuring(const std::function<void()>& action) {
    destroyInEvent_ = true;
    action();
    destroyInEvent_ = false;
    EXPECT_EQ(window_, nullptr) << "no event";
    Close();
    window_ = new InputWindow;
    SetUp();
  }

  // Drawn controls: one below the other.
  void Place(TmyControl& control, const SIZE& size) {
    control.SetBounds(10, top_, size.cx, size.cy);
    top_ += 40;
  }
  void Click(const TmyControl& control) const {
    Input::Click(*window_, control.Bounds().left + 3, control.Bounds().top + 3);
  }
  void Focus(TmyControl& control) const {
    window_->FocusDrawn(&control);
    SetFocus(window_->Handle());
    EXPECT_TRUE(control.HasFocus()) << "no focus: is there a display?";
  }

  InputWindow* window_ = new InputWindow;  // deleted by its window
  int events_ = 0;
  bool destroyInEvent_ = false;
  int top_ = 10;
};

// Marlux 3. A top-level window for tests that send real messages to a control in it.
#pragma once

#include "toolkit/TmyApplication.h"
#include "toolkit/myComponents.h"

class InputWindow : public TmyComponent {
 public:
  InputWindow() : TmyComponent("Input", WS_OVERLAPPEDWINDOW | WS_TABSTOP, 0, 0, 0, 640, 480, nullptr) { Show(true); }

  void MouseWheel(WPARAM, TmyComponent*) override { ++wheels; }

  int wheels = 0;  // that a control did not use
};

namespace Input {

inline void Mouse(const TmyComponent& control, UINT message, int x, int y, WPARAM keys = 0) {
  SendMessageA(control.Handle(), message, keys, MAKELPARAM(x, y));
}

inline void Drag(const TmyComponent& control, int fromX, int fromY, int toX, int toY) {
  Mouse(control, WM_LBUTTONDOWN, fromX, fromY, MK_LBUTTON);
  Mouse(control, WM_MOUSEMOVE, toX, toY, MK_LBUTTON);
  Mouse(control, WM_LBUTTONUP, toX, toY);
}

inline void Click(const TmyComponent& control, int x, int y, WPARAM keys = 0) {
  Mouse(control, WM_LBUTTONDOWN, x, y, keys | MK_LBUTTON);
  Mouse(control, WM_LBUTTONUP, x, y, keys);
}

inline void Wheel(const TmyComponent& control, int notches, WORD keys = 0) {
  SendMessageA(control.Handle(), WM_MOUSEWHEEL, MAKEWPARAM(keys, notches * WHEEL_DELTA), 0);
}

// With Shift or Ctrl held, as the thread's key state says it.
inline void Key(const TmyComponent& control, uint32_t key, int modifier = 0, LPARAM flags = 1) {
  BYTE before[256] = {}, state[256] = {};
  GetKeyboardState(before);
  if (modifier != 0) state[modifier] = 0x80;
  SetKeyboardState(state);
  SendMessageA(control.Handle(), WM_KEYDOWN, key, flags);
  SetKeyboardState(before);
}

}  // namespace Input

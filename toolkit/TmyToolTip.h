// Marlux 3. The one tool tip of the module: the system's tool-tip control, shown for the control under the cursor.
#pragma once

#include <windows.h>

#include "toolkit/TmyControl.h"

class TmyToolTip {
 public:
  TmyToolTip() noexcept = default;
  ~TmyToolTip();
  TmyToolTip(const TmyToolTip&) = delete;
  TmyToolTip& operator=(const TmyToolTip&) = delete;

  void Show(const TmyControl& control, const char* text);  // below the cursor
  void Hide() noexcept;
  void Watch() noexcept;  // hides it after some seconds, and when the cursor has left the control

 private:
  [[nodiscard]] bool Create() noexcept;

  HWND handle_ = nullptr;  // made when first needed
  bool shown_ = false;
  uint32_t since_ = 0;  // ticks, when it was shown
  RECT area_ = {};      // the control's, on the screen
  TmyString text_;      // the control keeps a pointer to it
};

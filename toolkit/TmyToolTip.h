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

 private:
  [[nodiscard]] bool Create() noexcept;

  HWND handle_ = nullptr;  // made when first needed
  bool shown_ = false;
  TmyString text_;  // the control keeps a pointer to it
};

// Marlux 3. A hidden window that notices a cursor resting on a control and calls its Hover().
#pragma once

#include "toolkit/TmyWindowBase.h"

class TmyHoveringMonitor : public TmyWindowBase {
 public:
  static constexpr uint32_t kTickMilliseconds = 100;
  static constexpr uint32_t kDelayMilliseconds = 500;

  TmyHoveringMonitor();

  // Each window reports the control of its own that is under the cursor, or itself; only a change counts.
  void Report(TmyControl& control) noexcept;
  void Forget(const TmyControl& control) noexcept;  // the control is going

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Tick();

  TmyControl* control_ = nullptr;  // not owned; every control forgets itself when it goes
  uint32_t since_ = 0;             // ticks, when it was recorded
};

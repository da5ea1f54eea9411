// Marlux 3. A hidden window that turns timer ticks into calls of Timer(0) on any control, windowed or drawn.
#pragma once

#include "toolkit/TmyWindowBase.h"

class TmyPublicTimer : public TmyWindowBase {
 public:
  TmyPublicTimer();

  // The object must stop its timer before it goes; a second start changes the period.
  void StartTimer(TmyControl& object, uint32_t milliseconds) noexcept;
  void StopTimer(const TmyControl& object) noexcept;

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

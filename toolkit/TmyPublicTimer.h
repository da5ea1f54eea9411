// Marlux 3. A hidden window that turns timer ticks into calls of Timer(0) on any control, windowed or drawn.
#pragma once

#include "foundation/TmyList.h"
#include "toolkit/TmyWindowBase.h"

class TmyPublicTimer : public TmyWindowBase {
 public:
  TmyPublicTimer();

  // Until StopTimer or the object's end; a second start changes the period.
  void StartTimer(TmyControl& object, uint32_t milliseconds) noexcept;
  void StopTimer(const TmyControl& object) noexcept;

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  TmyList objects_;  // TmyControl pointers, not owned: those that tick. A tick for any other pointer is stale.
};

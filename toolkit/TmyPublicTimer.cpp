#include "toolkit/TmyPublicTimer.h"

TmyPublicTimer::TmyPublicTimer() : TmyWindowBase("myPublicTimer", WS_POPUP, 0, 0, 0, 0, 0, nullptr) {}

void TmyPublicTimer::StartTimer(TmyControl& object, uint32_t milliseconds) noexcept {
  SetTimer(Handle(), reinterpret_cast<UINT_PTR>(&object), milliseconds, nullptr);
}

// A tick that was already queued would still arrive and name an object that may be gone: it is taken out.
void TmyPublicTimer::StopTimer(const TmyControl& object) noexcept {
  const auto id = reinterpret_cast<UINT_PTR>(&object);
  KillTimer(Handle(), id);
  MSG queued[16];
  int kept = 0;
  while (kept < 16 && PeekMessageA(&queued[kept], Handle(), WM_TIMER, WM_TIMER, PM_REMOVE | PM_NOYIELD)) {
    if (queued[kept].wParam != id) ++kept;
  }
  for (int i = 0; i < kept; ++i) PostMessageA(Handle(), WM_TIMER, queued[i].wParam, queued[i].lParam);
}

LRESULT TmyPublicTimer::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_TIMER) {
    reinterpret_cast<TmyControl*>(wParam)->Timer(0);
    return 0;
  }
  return TmyWindowBase::WndProc(message, wParam, lParam);
}

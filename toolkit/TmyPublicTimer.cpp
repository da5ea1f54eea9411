#include "toolkit/TmyPublicTimer.h"

TmyPublicTimer::TmyPublicTimer() : TmyWindowBase("myPublicTimer", WS_POPUP, 0, 0, 0, 0, 0, nullptr) {}

void TmyPublicTimer::StartTimer(TmyControl& object, uint32_t milliseconds) noexcept {
  if (objects_.IndexOf(&object) < 0) objects_.Add(&object);
  SetTimer(Handle(), reinterpret_cast<UINT_PTR>(&object), milliseconds, nullptr);
}

void TmyPublicTimer::StopTimer(const TmyControl& object) noexcept {
  const int32_t at = objects_.IndexOf(&object);
  if (at < 0) return;
  objects_.Delete(static_cast<uint32_t>(at));
  KillTimer(Handle(), reinterpret_cast<UINT_PTR>(&object));
}

LRESULT TmyPublicTimer::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_TIMER) {
    auto* object = reinterpret_cast<TmyControl*>(wParam);
    if (objects_.IndexOf(object) >= 0) object->Timer(0);
    return 0;
  }
  return TmyWindowBase::WndProc(message, wParam, lParam);
}

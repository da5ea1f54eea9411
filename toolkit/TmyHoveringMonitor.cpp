#include "toolkit/TmyHoveringMonitor.h"

#include "foundation/Clock.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/myComponents.h"

namespace {
constexpr UINT_PTR kTimerId = 1;
}

TmyHoveringMonitor::TmyHoveringMonitor() : TmyWindowBase("", WS_POPUP, 0, 0, 0, 0, 0, nullptr) {
  SetTimer(Handle(), kTimerId, kTickMilliseconds, nullptr);
}

void TmyHoveringMonitor::Report(TmyControl& control) noexcept {
  if (&control == control_) return;
  control_ = &control;
  since_ = Clock::Ticks();
}

void TmyHoveringMonitor::Forget(const TmyControl& control) noexcept {
  if (&control == control_) control_ = nullptr;
}

LRESULT TmyHoveringMonitor::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_TIMER && wParam == kTimerId) {
    Tick();
    return 0;
  }
  return TmyWindowBase::WndProc(message, wParam, lParam);
}

void TmyHoveringMonitor::Tick() {
  TmyApplication::Get().WatchToolTip();
  if (!control_ || Clock::Ticks() - since_ <= kDelayMilliseconds) return;
  TmyControl& control = *control_;
  control_ = nullptr;  // told again when the cursor has moved and rests once more
  POINT origin = {};
  POINT cursor = {};
  control.GetScreenOrigin(origin);
  GetCursorPos(&cursor);
  const RECT area = {origin.x, origin.y, origin.x + control.Width(), origin.y + control.Height()};
  if (!PtInRect(&area, cursor)) return;
  control.Hover();
}

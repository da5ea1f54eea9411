#include "app/PlacedWindow.h"

#include <algorithm>
#include <limits>

namespace {

// A registry may hold any 32 bits: coordinates beyond these are cut, so that no sum of two overflows.
constexpr int32_t kFarthest = std::numeric_limits<int16_t>::max();

Settings::Place Cut(const Settings::Place& place) {
  return {std::clamp(place.left, -kFarthest, kFarthest), std::clamp(place.top, -kFarthest, kFarthest),
          std::clamp(place.width, 0, kFarthest), std::clamp(place.height, 0, kFarthest)};
}

Settings::Place PlaceOf(const RECT& rect) {
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

// The nearest monitor's area without the task bar.
MONITORINFO MonitorOf(const RECT& rect) {
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  GetMonitorInfoA(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &info);
  return info;
}

Settings::Place PlaceNow(HWND window) {
  WINDOWPLACEMENT placement = {};
  placement.length = sizeof placement;
  if ((IsIconic(window) || IsZoomed(window)) && GetWindowPlacement(window, &placement)) {
    RECT normal = placement.rcNormalPosition;  // counts from the work area's corner, not the screen's
    const MONITORINFO monitor = MonitorOf(normal);
    OffsetRect(&normal, monitor.rcWork.left - monitor.rcMonitor.left, monitor.rcWork.top - monitor.rcMonitor.top);
    return PlaceOf(normal);
  }
  RECT rect = {};
  GetWindowRect(window, &rect);
  return PlaceOf(rect);
}

}  // namespace

Settings::Place PlacedWindow::Inside(const Settings::Place& place, const RECT& area) noexcept {
  Settings::Place inside = place;
  inside.width = std::min<int32_t>(place.width, area.right - area.left);
  inside.height = std::min<int32_t>(place.height, area.bottom - area.top);
  inside.left = std::clamp<int32_t>(place.left, area.left, area.right - inside.width);
  inside.top = std::clamp<int32_t>(place.top, area.top, area.bottom - inside.height);
  return inside;
}

// A window that its monitor shows in part was put there by the user: only one that shows nowhere is moved.
void PlacedWindow::Restore(TmyWindowBase& window, const Settings::Place& stored) {
  stored_ = stored;
  Settings::Place place = Cut(stored);
  const RECT rect = {place.left, place.top, place.left + place.width, place.top + place.height};
  const MONITORINFO monitor = MonitorOf(rect);
  RECT visible = {};
  // The caption is what a user drags: its upper edge must be reachable.
  const bool isReachable = IntersectRect(&visible, &rect, &monitor.rcWork) && rect.top >= monitor.rcWork.top &&
                           visible.right - visible.left >= GetSystemMetrics(SM_CXMIN) / 2 &&
                           visible.bottom - visible.top >= GetSystemMetrics(SM_CYCAPTION);
  if (!isReachable) place = Inside(place, monitor.rcWork);
  SetWindowPos(window.Handle(), nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
  shown_ = PlaceNow(window.Handle());  // the window may have limits of its own
}

Settings::Place PlacedWindow::Current(const TmyWindowBase& window) const {
  const Settings::Place now = PlaceNow(window.Handle());
  return now == shown_ ? stored_ : now;
}

#include "app/PlacedWindow.h"

#include <algorithm>
#include <limits>

#include "toolkit/CentredPlace.h"

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

// The nearest monitor: all of it, and without the task bar.
MONITORINFO MonitorOf(const RECT& rect) {
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  GetMonitorInfoA(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &info);
  return info;
}

std::optional<Settings::Place> PlaceNow(HWND window) {
  WINDOWPLACEMENT placement = {};
  placement.length = sizeof placement;
  if (IsIconic(window) || IsZoomed(window)) {
    if (!GetWindowPlacement(window, &placement)) return std::nullopt;
    RECT normal = placement.rcNormalPosition;  // counts from the work area's corner, not the screen's
    const MONITORINFO monitor = MonitorOf(normal);
    OffsetRect(&normal, monitor.rcWork.left - monitor.rcMonitor.left, monitor.rcWork.top - monitor.rcMonitor.top);
    return PlaceOf(normal);
  }
  RECT rect = {};
  if (!GetWindowRect(window, &rect)) return std::nullopt;
  return PlaceOf(rect);
}

void Move(const TmyWindowBase& window, const Settings::Place& place) {
  SetWindowPos(window.Handle(), nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
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

// The caption is what a user drags: one that a monitor shows in part was put there on purpose. The window below it may
// lie on a second monitor.
bool PlacedWindow::IsReachable(const Settings::Place& place, const RECT& area) noexcept {
  const int caption = GetSystemMetrics(SM_CYCAPTION);
  const RECT strip = {place.left, place.top, place.left + place.width, place.top + std::min(place.height, caption)};
  RECT visible = {};
  return IntersectRect(&visible, &strip, &area) && visible.bottom - visible.top >= caption &&
         visible.right - visible.left >= GetSystemMetrics(SM_CXMIN) / 2;
}

// A window has limits of its own and may come out larger than asked for.
void PlacedWindow::Restore(const TmyWindowBase& window, const Settings::Place& stored) {
  stored_ = stored;
  Settings::Place place = Cut(stored);
  const RECT caption = {place.left, place.top, place.left + std::max(place.width, 1), place.top + 1};
  const RECT area = WorkAreaAt(caption);
  const bool isReachable = IsReachable(place, area);
  if (!isReachable) place = Inside(place, area);
  Move(window, place);
  shown_ = PlaceNow(window.Handle());
  if (isReachable || !shown_ || Inside(*shown_, area) == *shown_) return;
  Move(window, Inside(*shown_, area));
  shown_ = PlaceNow(window.Handle());
}

Settings::Place PlacedWindow::Current(const TmyWindowBase& window) const {
  const std::optional<Settings::Place> now = PlaceNow(window.Handle());
  return now && shown_ && *now != *shown_ ? *now : stored_;
}

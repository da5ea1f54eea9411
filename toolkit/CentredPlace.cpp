#include "toolkit/CentredPlace.h"

#include <algorithm>

#include "toolkit/myComponents.h"

RECT WorkAreaAt(const RECT& place) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  if (GetMonitorInfoA(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor)) return monitor.rcWork;
  return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

RECT CentredPlace(const TmyComponent& around, SIZE size, int shift) {
  RECT place = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  if (around.IsVisible() && !IsIconic(around.Handle())) GetWindowRect(around.Handle(), &place);
  const RECT work = WorkAreaAt(place);
  const LONG width = std::min(size.cx, work.right - work.left), height = std::min(size.cy, work.bottom - work.top);
  const LONG left = std::clamp((place.left + place.right - width) / 2 + shift, work.left, work.right - width);
  const LONG top = std::clamp((place.top + place.bottom - height) / 2 + shift, work.top, work.bottom - height);
  return {left, top, left + width, top + height};
}

#include "toolkit/CentredPlace.h"

#include <algorithm>

#include "toolkit/myComponents.h"

RECT CentredPlace(const TmyComponent& around, SIZE size) {
  RECT place = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  if (around.IsVisible() && !IsIconic(around.Handle())) GetWindowRect(around.Handle(), &place);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoA(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  const LONG left = std::max(std::min((place.left + place.right - size.cx) / 2, work.right - size.cx), work.left);
  const LONG top = std::max(std::min((place.top + place.bottom - size.cy) / 2, work.bottom - size.cy), work.top);
  return {left, top, left + size.cx, top + size.cy};
}

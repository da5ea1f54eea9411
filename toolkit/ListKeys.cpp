#include "toolkit/ListKeys.h"

#include <algorithm>

int32_t ListKeys::Target(uint32_t key, LPARAM keyFlags, int32_t selection, int32_t count, int32_t page) noexcept {
  if (IsWithAlt(keyFlags)) return kNotAListKey;
  const int32_t step = std::max(1, page - 1);  // one row stays in view
  int32_t target = 0;
  switch (key) {
    case VK_UP:
      target = selection - 1;
      break;
    case VK_DOWN:
      target = selection + 1;
      break;
    case VK_PRIOR:
      target = selection - step;
      break;
    case VK_NEXT:
      target = std::max(0, selection) + step;
      break;
    case VK_HOME:
      target = 0;
      break;
    case VK_END:
      target = count - 1;
      break;
    default:
      return kNotAListKey;
  }
  return count == 0 ? -1 : std::clamp(target, 0, count - 1);
}

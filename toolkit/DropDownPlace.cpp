#include "toolkit/DropDownPlace.h"

#include <algorithm>

RECT DropDownPlace::Of(const RECT& field, const RECT& workArea, int rows, int rowHeight, int textWidth, int scrollBar) {
  constexpr int kBorders = 2;  // a pixel on each side
  const auto rowsIn = [&](LONG pixels) { return std::max(0, (static_cast<int>(pixels) - kBorders) / rowHeight); };
  const int wanted = std::clamp(rows, 1, kMaximumRows);
  const int below = rowsIn(workArea.bottom - field.bottom);
  const int above = rowsIn(field.top - workArea.top);
  const bool upward = below < wanted && above > below;
  const int shown = std::max(1, std::min(wanted, upward ? above : below));
  const int height = shown * rowHeight + kBorders;
  const int needed = textWidth + kBorders + (shown < rows ? scrollBar : 0);
  const int widest = static_cast<int>(workArea.right - workArea.left);
  const int width = std::min(std::max(static_cast<int>(field.right - field.left), needed), widest);
  const int left = std::clamp(static_cast<int>(field.left), static_cast<int>(workArea.left),
                              static_cast<int>(workArea.right) - width);
  const int top = static_cast<int>(upward ? field.top - height : field.bottom);
  return {left, top, left + width, top + height};
}

RECT DropDownPlace::OfSize(const RECT& field, const RECT& workArea, SIZE size) {
  const bool upward = field.bottom + size.cy > workArea.bottom && field.top - size.cy >= workArea.top;
  const LONG left = std::max(workArea.left, std::min(field.left, workArea.right - size.cx));
  const LONG top = upward ? field.top - size.cy : field.bottom;
  return {left, top, left + size.cx, top + size.cy};
}

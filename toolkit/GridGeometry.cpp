#include "toolkit/GridGeometry.h"

#include <algorithm>

namespace GridGeometry {
namespace {

constexpr int kFrame = 1;

int RecordsHeight(const Layout& layout) noexcept {
  return std::max(0L, layout.area.bottom - layout.area.top - layout.titleHeight);
}

// Columns are found from the right, so that a column squeezed between two close borders can be widened again.
int BorderAt(const Layout& layout, int x, int grab) noexcept {
  for (uint32_t column = layout.columns; column-- > 0;) {
    const int right = ColumnStrip(layout, column).right;
    if (x >= right - grab && x <= right + grab) return static_cast<int>(column);
  }
  return kNoColumn;
}

int ColumnAt(const Layout& layout, int x) noexcept {
  for (uint32_t column = 0; column < layout.columns; ++column) {
    const RECT strip = ColumnStrip(layout, column);
    if (x >= strip.left && x < strip.right) return static_cast<int>(column);
  }
  return kNoColumn;
}

}  // namespace

int DrawnWidth(int32_t stored) noexcept {
  return std::clamp(stored, kMinWidth, kMaxWidth);
}

int ColumnsWidth(const Layout& layout) noexcept {
  int width = 0;
  for (uint32_t column = 0; column < layout.columns; ++column) width += DrawnWidth(layout.widths[column]);
  return width;
}

View ViewOf(const Layout& layout, int clientWidth, int clientHeight, int barThickness) noexcept {
  View view;
  const int width = std::max(0, clientWidth - 2 * kFrame), height = std::max(0, clientHeight - 2 * kFrame);
  const int64_t contentHeight = int64_t{layout.records} * layout.rowHeight + layout.titleHeight;
  const int contentWidth = ColumnsWidth(layout);
  // Each bar takes room that may make the other one necessary.
  view.vertical = contentHeight > height;
  view.horizontal = contentWidth > width - (view.vertical ? barThickness : 0);
  if (view.horizontal && contentHeight > height - barThickness) view.vertical = true;
  view.area = {kFrame, kFrame, kFrame + std::max(0, width - (view.vertical ? barThickness : 0)),
               kFrame + std::max(0, height - (view.horizontal ? barThickness : 0))};
  return view;
}

uint32_t FullRecords(const Layout& layout) noexcept {
  return static_cast<uint32_t>(std::max(1, RecordsHeight(layout) / layout.rowHeight));
}

RecordRange ShownRecords(const Layout& layout) noexcept {
  return RecordsIn(layout, RecordsArea(layout));
}

RecordRange RecordsIn(const Layout& layout, const RECT& area) noexcept {
  const RECT all = RecordsArea(layout);
  const int top = std::max(all.top, area.top) - all.top;
  const int bottom = std::min(all.bottom, area.bottom) - all.top;
  if (bottom <= top) return {};
  const uint64_t first = uint64_t{layout.top} + static_cast<uint32_t>(top / layout.rowHeight);
  const uint64_t end = uint64_t{layout.top} + static_cast<uint32_t>((bottom + layout.rowHeight - 1) / layout.rowHeight);
  const uint64_t limit = layout.records;
  return {static_cast<uint32_t>(std::min(first, limit)), static_cast<uint32_t>(std::min(end, limit))};
}

RECT TitleRow(const Layout& layout) noexcept {
  RECT row = layout.area;
  row.bottom = std::min<LONG>(row.bottom, row.top + layout.titleHeight);
  return row;
}

RECT RecordsArea(const Layout& layout) noexcept {
  RECT area = layout.area;
  area.top = std::min<LONG>(area.bottom, area.top + layout.titleHeight);
  return area;
}

RECT ColumnStrip(const Layout& layout, uint32_t column) noexcept {
  RECT strip = layout.area;
  strip.left -= layout.scrollX;
  for (uint32_t i = 0; i < column; ++i) strip.left += DrawnWidth(layout.widths[i]);
  strip.right = strip.left + DrawnWidth(layout.widths[column]);
  return strip;
}

RECT RecordStrip(const Layout& layout, uint32_t record) noexcept {
  const RecordRange shown = ShownRecords(layout);
  if (record < shown.first || record >= shown.end) return {};
  RECT strip = RecordsArea(layout);
  strip.top += static_cast<int>(record - layout.top) * layout.rowHeight;
  strip.bottom = std::min<LONG>(strip.bottom, strip.top + layout.rowHeight);
  return strip;
}

Hit HitTest(const Layout& layout, int x, int y, int grab) noexcept {
  const POINT at = {x, y};
  Hit hit;
  if (const RECT title = TitleRow(layout); PtInRect(&title, at)) {
    hit.column = BorderAt(layout, x, grab);
    hit.part = Part::kBorder;
    if (hit.column != kNoColumn) return hit;
    hit.column = ColumnAt(layout, x);
    hit.part = hit.column == kNoColumn ? Part::kNothing : Part::kTitle;
    return hit;
  }
  const RECT below = RecordsArea(layout);
  if (!PtInRect(&below, at)) return hit;
  const RecordRange one = RecordsIn(layout, {x, y, x + 1, y + 1});
  if (one.first == one.end) return hit;
  hit.part = Part::kRecord;
  hit.record = one.first;
  hit.column = ColumnAt(layout, x);
  return hit;
}

uint32_t GapAt(const Layout& layout, int x) noexcept {
  uint32_t gap = 0;
  for (; gap < layout.columns; ++gap) {
    const RECT strip = ColumnStrip(layout, gap);
    if (x < (strip.left + strip.right) / 2) break;
  }
  return gap;
}

int GapEdge(const Layout& layout, uint32_t gap) noexcept {
  return gap == 0 ? layout.area.left - layout.scrollX : ColumnStrip(layout, gap - 1).right;
}

int PlaceAfterMove(int place, uint32_t from, uint32_t to) noexcept {
  const int source = static_cast<int>(from), target = static_cast<int>(to);
  if (place == source) return target;
  if (place > source && place <= target) return place - 1;
  return place < source && place >= target ? place + 1 : place;
}

uint32_t TopFor(const Layout& layout, uint32_t record) noexcept {
  if (record < layout.top) return record;
  const uint32_t full = FullRecords(layout);
  return record - layout.top < full ? layout.top : record - full + 1;
}

bool RecordAfterKey(const Layout& layout, uint32_t key, uint32_t current, uint32_t& after) noexcept {
  if (layout.records == 0) return false;
  const bool none = current >= layout.records;
  const uint32_t last = layout.records - 1;
  const uint32_t page = std::max(1u, FullRecords(layout) - 1);
  const uint32_t from = none ? std::min(layout.top, last) : current;
  switch (key) {
    case VK_UP:
      after = none || from == 0 ? from : from - 1;
      return true;
    case VK_DOWN:
      after = none || from == last ? from : from + 1;
      return true;
    case VK_PRIOR:
      after = from > page ? from - page : 0;
      return true;
    case VK_NEXT:
      after = last - from > page ? from + page : last;
      return true;
    case VK_HOME:
      after = 0;
      return true;
    case VK_END:
      after = last;
      return true;
    default:
      return false;
  }
}

}  // namespace GridGeometry

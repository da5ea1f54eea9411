// Marlux 3. Where the parts of a string grid lie: functions on numbers and rectangles, without a window.
//
// Records count from 0; the title row is not one of them. Columns count from 0. Pixels in client coordinates.
#pragma once

#include <windows.h>

#include <cstdint>

namespace GridGeometry {

constexpr uint32_t kMaxColumns = 32;
constexpr uint32_t kNoRecord = 0xFFFFFFFF;
constexpr int kNoColumn = -1;
// A column never gets so narrow that its border cannot be caught again, nor so wide that it cannot be dragged back.
constexpr int kMinWidth = 12;
constexpr int kMaxWidth = 1600;

struct Layout {
  RECT area = {};       // title row and records, without frame and scroll bars
  int titleHeight = 1;  // at least 1, as rowHeight
  int rowHeight = 1;
  const int32_t* widths = nullptr;  // one a column, as stored; DrawnWidth makes them sane
  uint32_t columns = 0;
  uint32_t records = 0;
  uint32_t top = 0;  // the first record shown
  int scrollX = 0;   // pixels by which the columns are moved to the left
};

// How the client area is divided. The grid's frame is one pixel wide on every side.
struct View {
  RECT area = {};           // as in Layout
  bool vertical = false;    // a scroll bar is needed: right of the records, below the title row
  bool horizontal = false;  // and below the records
};

enum class Part { kNothing, kTitle, kBorder, kRecord };

struct Hit {
  Part part = Part::kNothing;
  int column = kNoColumn;  // kBorder: the column left of the border; kRecord: kNoColumn right of the last column
  uint32_t record = kNoRecord;
};

struct RecordRange {
  uint32_t first = 0;
  uint32_t end = 0;  // behind the last
};

[[nodiscard]] int DrawnWidth(int32_t stored) noexcept;
[[nodiscard]] int ColumnsWidth(const Layout& layout) noexcept;
[[nodiscard]] View ViewOf(const Layout& layout, int clientWidth, int clientHeight, int barThickness) noexcept;

[[nodiscard]] uint32_t FullRecords(const Layout& layout) noexcept;      // that fit without being cut; at least 1
[[nodiscard]] RecordRange ShownRecords(const Layout& layout) noexcept;  // the cut one at the end too
[[nodiscard]] RecordRange RecordsIn(const Layout& layout, const RECT& area) noexcept;  // those that touch an area

[[nodiscard]] RECT TitleRow(const Layout& layout) noexcept;
[[nodiscard]] RECT RecordsArea(const Layout& layout) noexcept;                   // below the title row
[[nodiscard]] RECT ColumnStrip(const Layout& layout, uint32_t column) noexcept;  // top to bottom of the area
[[nodiscard]] RECT RecordStrip(const Layout& layout, uint32_t record) noexcept;  // empty when it is not shown

// `grab` is how far beside a column's border the title row still belongs to the border.
[[nodiscard]] Hit HitTest(const Layout& layout, int x, int y, int grab) noexcept;

// Where a dragged title would be dropped. Gap i lies before column i, the last one behind the last column.
[[nodiscard]] uint32_t GapAt(const Layout& layout, int x) noexcept;
[[nodiscard]] int GapEdge(const Layout& layout, uint32_t gap) noexcept;  // its x
// The place that the column takes when it leaves its own and goes to the gap.
[[nodiscard]] constexpr uint32_t PlaceInGap(uint32_t column, uint32_t gap) noexcept {
  return gap > column ? gap - 1 : gap;
}
// Where the thing at a place is after the column `from` has moved to `to`.
[[nodiscard]] int PlaceAfterMove(int place, uint32_t from, uint32_t to) noexcept;

// The `top` nearest to the present one with which a record is shown uncut.
[[nodiscard]] uint32_t TopFor(const Layout& layout, uint32_t record) noexcept;

// Where a key takes the current record (kNoRecord: there is none yet). False: not a key that moves it, or no records.
[[nodiscard]] bool RecordAfterKey(const Layout& layout, uint32_t key, uint32_t current, uint32_t& after) noexcept;

}  // namespace GridGeometry

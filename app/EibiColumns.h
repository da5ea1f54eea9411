// Marlux 3. The columns of the EiBi grid: titles, widths, texts and the order that a click on a title asks for.
#pragma once

#include <array>
#include <string_view>

#include "app/RecordSort.h"
#include "app/ShownZone.h"
#include "foundation/TmyList.h"
#include "schedule/EibiItem.h"

// Grid columns from 0. The ITU country has a test for sorting and a stored width, but no shown column.
enum class EibiColumn : uint32_t { kFrequency, kStart, kStop, kDays, kStation, kLanguage, kTarget, kRemarks, kItu };
inline constexpr uint32_t kEibiShownColumns = 8;
inline constexpr uint32_t kEibiColumns = 9;

struct EibiColumnInfo {
  const char* title;
  int32_t width;  // pixels at 96 dpi, for a window of 800
  bool alignRight;
};

inline constexpr std::array<EibiColumnInfo, kEibiColumns> kEibiColumnInfos = {{
    {"Freq", 72, true},
    {"Start", 54, true},
    {"Stop", 54, true},
    {"Days", 112, false},
    {"Station", 222, false},
    {"Language", 84, false},
    {"Target", 66, false},
    {"Remarks", 104, false},
    {"ITU", 48, false},
}};

// The text of a cell, zero-terminated, valid while record and buffer are. Records hold their texts already; only local
// times are written into the buffer. An offset of 0 changes nothing, so that 24:00 stays; "-" stays "-".
[[nodiscard]] std::string_view EibiCellText(const EibiItem& item, EibiColumn column, const ShownZone& zone,
                                            CellBuffer& buffer) noexcept;

// True when `left` belongs behind `right` in an ascending sort: frequencies as unsigned numbers, all other columns by
// the shown texts as unsigned characters.
[[nodiscard]] bool EibiGreater(const EibiItem& left, const EibiItem& right, EibiColumn column,
                               const ShownZone& zone) noexcept;

// Sorts a list of EibiItem pointers by that test.
void SortEibi(TmyList& records, EibiColumn column, SortDirection direction, const ShownZone& zone);

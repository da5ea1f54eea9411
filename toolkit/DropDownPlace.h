// Marlux 3. Where a drop-down list goes: below its field, or above when there is no room, never over it.
#pragma once

#include <windows.h>

namespace DropDownPlace {

constexpr int kMaximumRows = 12;

// Screen coordinates. `textWidth` is what the rows need inside the border; `scrollBar` the width of a vertical bar,
// counted when not all rows are shown. At least as wide as the field, never wider than the work area; only whole rows,
// at least one, also for a list without items.
[[nodiscard]] RECT Of(const RECT& field, const RECT& workArea, int rows, int rowHeight, int textWidth, int scrollBar);

// For a window of a size of its own: below the field, above it when only there is room, inside the work area sideways.
[[nodiscard]] RECT OfSize(const RECT& field, const RECT& workArea, SIZE size);

}  // namespace DropDownPlace

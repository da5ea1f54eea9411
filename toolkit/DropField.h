// Marlux 3. The look of a closed field that drops something down: a frame, and an arrow at the right.
#pragma once

#include <windows.h>

namespace DropField {

// Covers `all`. Returns the room for the text; its right may lie left of its left in a narrow field.
RECT Paint(HDC dc, const RECT& all, bool enabled, bool active);
// For a field whose text is that wide, in pixels.
[[nodiscard]] int WidthFor(int textWidth);

}  // namespace DropField

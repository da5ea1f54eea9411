// Marlux 3. Where a window that has no place yet opens.
#pragma once

#include <windows.h>

class TmyComponent;

// Centred on another window, or on the screen while that one is not to be seen; inside the work area of the monitor
// there, its left upper corner at the least. Screen coordinates.
[[nodiscard]] RECT CentredPlace(const TmyComponent& around, SIZE size);

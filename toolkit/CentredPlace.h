// Marlux 3. Where a window that has no place yet opens.
#pragma once

#include <windows.h>

class TmyComponent;

// The part of a screen that windows may cover, without the task bar: of the monitor that has the most of `place`, or is
// nearest to it. Screen coordinates, as everything here.
[[nodiscard]] RECT WorkAreaAt(const RECT& place);

// Centred on another window, or on the screen while that one is not to be seen, and moved from there by `shift` pixels
// to the right and down. Inside the work area there, and no larger than it.
[[nodiscard]] RECT CentredPlace(const TmyComponent& around, SIZE size, int shift = 0);

// Marlux 3. In which zone the grids show times, and how local ones come about.
#pragma once

#include <string_view>

#include "foundation/Clock.h"

struct ShownZone {
  bool utc = true;
  int32_t localOffset = 0;  // seconds that local time is ahead of UTC; counts when `utc` is false
  bool operator==(const ShownZone&) const = default;

  // True when times are shown as the schedule has them: also local ones that are the same, so that 24:00 stays.
  [[nodiscard]] constexpr bool KeepsUtc() const noexcept { return utc || localOffset == 0; }
  [[nodiscard]] constexpr int32_t LocalMinutes(int32_t utcSeconds) const noexcept {  // of the day
    return ShiftTimeOfDay(utcSeconds, localOffset) / 60;
  }
};

// Room for what a cell shows when its record does not hold that text.
using CellBuffer = char[8];

// HH:MM, zero-terminated, for minutes below 1440.
[[nodiscard]] std::string_view WriteTime(int32_t minutes, CellBuffer& buffer) noexcept;

// Marlux 3. The one place that reads the time. Tests set it; everything else asks here.
#pragma once

#include <windows.h>

#include "foundation/Compiler.h"

namespace Clock {

[[nodiscard]] SYSTEMTIME Utc() noexcept;
[[nodiscard]] SYSTEMTIME Local() noexcept;
// What to add to a UTC time to get the local one now, in seconds: 3600 for UTC+1. Summer time is counted in.
[[nodiscard]] int32_t LocalOffsetSeconds() noexcept;
// Milliseconds since some moment, wrapping at 2^32: for intervals only.
[[nodiscard]] uint32_t Ticks() noexcept;

// Stops the clock at a moment and an offset, until Release. For tests.
void Hold(const SYSTEMTIME& utc, int32_t localOffsetSeconds) noexcept;
void Release() noexcept;
void AdvanceTicks(uint32_t milliseconds) noexcept;  // for good; for tests, too

}  // namespace Clock

inline constexpr int32_t kSecondsPerDay = 86400;

// A time of day in seconds moved by an offset and brought back into 0 to 86399.
[[nodiscard]] constexpr int32_t ShiftTimeOfDay(int32_t seconds, int32_t offset) noexcept {
  const int32_t moved = (seconds % kSecondsPerDay + offset % kSecondsPerDay) % kSecondsPerDay;
  return moved < 0 ? moved + kSecondsPerDay : moved;
}

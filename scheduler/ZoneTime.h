// Marlux 3. Times of day of tasks between UTC, in which they are kept, and the zone in which the user sees them.
#pragma once

#include "foundation/Clock.h"

// `offset` is what to add to UTC, in seconds. The result is a time of day, 0 to 86399, also for a time of a later day:
// a stop time may be one. What passes midnight on the way is the time of day that the user means, on whatever day.
[[nodiscard]] constexpr uint32_t LocalOfUtc(uint32_t utcSeconds, int32_t offset) noexcept {
  return static_cast<uint32_t>(ShiftTimeOfDay(static_cast<int32_t>(utcSeconds % kSecondsPerDay), offset));
}
[[nodiscard]] constexpr uint32_t UtcOfLocal(uint32_t localSeconds, int32_t offset) noexcept {
  return LocalOfUtc(localSeconds, -offset);
}

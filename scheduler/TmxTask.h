// Marlux 3. A scheduled recording: what to tune to, on which days and between which times. Also one record of the task
// file, byte for byte.
#pragma once

#include <type_traits>

#include "foundation/Compiler.h"

// A moment as the system counts it (FILETIME): steps of 100 ns since the start of 1601, which was a Monday.
struct TaskDate {
  uint32_t low;
  uint32_t high;

  [[nodiscard]] constexpr uint64_t Ticks() const noexcept { return uint64_t{high} << 32 | low; }

  bool operator==(const TaskDate&) const = default;
};

inline constexpr uint64_t kTicksPerSecond = 10'000'000;
inline constexpr uint64_t kTicksPerDay = 86400 * kTicksPerSecond;

// A task is known by its address, for as long as its list holds it. No field is checked on reading or on editing: any
// mode, any time, an empty day mask and dates in the wrong order are kept as they are.
struct TmxTask {
  uint64_t frequency;  // Hz
  int32_t mode;        // the host's number
  uint32_t reserved;   // never looked at, kept from file to file; 0 in a new task
  TaskDate from;       // UTC; the first and the last day, both included: only the date counts
  TaskDate to;
  uint32_t start;    // UTC seconds of the day
  uint32_t stop;     // the same; 86400 and more is "until midnight"
  uint32_t days;     // bit 0 Sunday to bit 6 Saturday, by the UTC day
  uint32_t enabled;  // 0 is off, anything else on

  bool operator==(const TmxTask&) const = default;
};

inline constexpr uint32_t kEveryDay = 0x7F;

static_assert(sizeof(TmxTask) == 48 && std::has_unique_object_representations_v<TmxTask>);
static_assert(std::is_trivially_copyable_v<TmxTask>);
static_assert(offsetof(TmxTask, frequency) == 0);
static_assert(offsetof(TmxTask, mode) == 8);
static_assert(offsetof(TmxTask, reserved) == 12);
static_assert(offsetof(TmxTask, from) == 16);
static_assert(offsetof(TmxTask, to) == 24);
static_assert(offsetof(TmxTask, start) == 32);
static_assert(offsetof(TmxTask, stop) == 36);
static_assert(offsetof(TmxTask, days) == 40);
static_assert(offsetof(TmxTask, enabled) == 44);

#include "scheduler/NewTask.h"

namespace {
constexpr uint32_t kAnHour = 3600;
constexpr int32_t kModeAm = 1;
}  // namespace

TmxTask NewTask(uint32_t rawFrequency, TaskDate utcNow) noexcept {
  const auto start = static_cast<uint32_t>(utcNow.Ticks() % kTicksPerDay / kTicksPerSecond);
  return {.frequency = rawFrequency,
          .mode = kModeAm,
          .reserved = 0,
          .from = utcNow,
          .to = utcNow,
          .start = start,
          .stop = start + kAnHour,
          .days = kEveryDay,
          .enabled = 1};
}

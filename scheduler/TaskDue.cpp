#include "scheduler/TaskDue.h"

namespace {

bool IsInside(uint32_t start, uint32_t stop, uint32_t seconds) noexcept {
  if (start < stop) return start <= seconds && seconds <= stop;
  if (start > stop) return seconds >= start || seconds <= stop;
  return true;
}

}  // namespace

TaskMoment MomentOf(TaskDate utc) noexcept {
  const uint64_t ticks = utc.Ticks();
  const uint64_t timeOfDay = ticks % kTicksPerDay;
  return {.midnight = ticks - timeOfDay,
          .seconds = static_cast<uint32_t>(timeOfDay / kTicksPerSecond),
          .weekday = static_cast<uint32_t>((ticks / kTicksPerDay + 1) % 7)};  // day 0 was a Monday
}

// The dates are compared with the ends of the day instead of being cut to days: no division, for each task, twice a
// second.
bool IsDue(const TmxTask& task, const TaskMoment& now) noexcept {
  return (task.days >> now.weekday & 1) != 0 && task.from.Ticks() < now.midnight + kTicksPerDay &&
         task.to.Ticks() >= now.midnight && IsInside(task.start, task.stop, now.seconds) && task.enabled != 0;
}

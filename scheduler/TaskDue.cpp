#include "scheduler/TaskDue.h"

namespace {

uint64_t DayOf(TaskDate date) noexcept {
  return date.Ticks() / kTicksPerDay;
}

bool IsInside(uint32_t start, uint32_t stop, uint32_t seconds) noexcept {
  if (start < stop) return start <= seconds && seconds <= stop;
  if (start > stop) return seconds >= start || seconds <= stop;
  return true;
}

}  // namespace

TaskMoment MomentOf(TaskDate utc) noexcept {
  const uint64_t day = DayOf(utc);
  return {.day = day,
          .seconds = static_cast<uint32_t>(utc.Ticks() % kTicksPerDay / kTicksPerSecond),
          .weekday = static_cast<uint32_t>((day + 1) % 7)};  // day 0 was a Monday
}

bool IsDue(const TmxTask& task, const TaskMoment& now) noexcept {
  return (task.days >> now.weekday & 1) != 0 && DayOf(task.from) <= now.day && now.day <= DayOf(task.to) &&
         IsInside(task.start, task.stop, now.seconds) && task.enabled != 0;
}

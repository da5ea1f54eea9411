// Marlux 3. Whether a task is to be recorded at a moment. A function of its arguments: it asks no clock.
//
//   const TaskMoment now = MomentOf(DateOfTime(Clock::Utc()));   // once for all tasks
//   if (IsDue(task, now)) ...
//
// Day and time of day are those of UTC. A time window may cross midnight; the days behind midnight are then tested for
// themselves, so a window from Monday evening on needs Tuesday, too. Start and stop are both inside the window. Equal
// start and stop mean the whole day. Dates count by their day; one beyond what the system can show (bit 63 set) is just
// a day very far ahead: such a task never begins, or never ends.
#pragma once

#include "scheduler/TmxTask.h"

struct TaskMoment {
  uint64_t midnight;  // when the day began, as TaskDate counts
  uint32_t seconds;   // of the day
  uint32_t weekday;   // 0 is Sunday
};

[[nodiscard]] TaskMoment MomentOf(TaskDate utc) noexcept;
[[nodiscard]] bool IsDue(const TmxTask& task, const TaskMoment& now) noexcept;

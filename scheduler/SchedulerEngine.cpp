#include "scheduler/SchedulerEngine.h"

#include "foundation/Clock.h"
#include "scheduler/TaskTime.h"

namespace {
TaskMoment Now() noexcept {
  return MomentOf(DateOfTime(Clock::Utc()));
}
}  // namespace

// What was started is looked at once more, at the time that it is then: the host may have deleted or changed the task
// inside, or have kept us for hours. A running task that is not in the list is gone; its address is not followed.
void SchedulerEngine::Tick() {
  session_.Ticked();
  if (!session_.CurrentTask() && (isStarting_.IsUp() || !StartFirstDue(Now()))) return;
  const TmxTask* const task = session_.CurrentTask();
  if (task && (tasks_.IndexOf(task) < 0 || !IsDue(*task, Now()))) session_.Stop();
}

// While the host tunes, a loop of its own may let timers run.
bool SchedulerEngine::StartFirstDue(const TaskMoment& now) {
  for (uint32_t i = 0; i < tasks_.Count(); ++i) {
    TmxTask* const task = tasks_.Get(i);
    if (!IsDue(*task, now)) continue;
    const FrameFlag::Scope starting(isStarting_);
    return session_.Start(RecordingSession::kTask, task->frequency, static_cast<uint32_t>(task->mode), task);
  }
  return false;
}

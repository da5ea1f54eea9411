#include "app/SchedulerDesk.h"

#include "foundation/Clock.h"
#include "scheduler/NewTask.h"
#include "scheduler/TaskTime.h"

SchedulerDesk::SchedulerDesk(TmyComponent& window, MainScheduler& scheduler, HostLink& link, const HostInfo& host,
                             const bool& utc)
    : window_(window),
      scheduler_(scheduler),
      link_(link),
      host_(host),
      utc_(utc),
      view_(new TmxSchedulerWindow(*this)) {}

void SchedulerDesk::View() {
  view_->Open();
}

void SchedulerDesk::NewTask() {
  view_->PostNewTask(nullptr);
  view_->Open();
}

void SchedulerDesk::Schedule(const TuneTarget& station) {
  auto task = std::make_unique<TmxTask>(::NewTask(station.frequencyHz, DateOfTime(Clock::Utc())));
  task->mode = static_cast<int32_t>(station.mode);
  view_->PostNewTask(std::move(task));
  view_->Open();
}

// A task that ends and one that begins in the same tick are one change.
void SchedulerDesk::Ticked() {
  const TmxTask* running = scheduler_.RunningTask();
  if (running == marked_) return;
  marked_ = running;
  view_->RunningTaskChanged();
}

// Marlux 3. The main window's side of the scheduler's windows: it makes and opens them and answers what they ask.
//
//   desk_.View();                      // "View scheduler"
//   desk_.Schedule(target);            // "Schedule this station": the editor opens on a task for it
//   scheduler_.Tick(); desk_.Ticked();   // marks the task that runs now
#pragma once

#include "app/MainScheduler.h"
#include "app/ScheduleGrid.h"
#include "plugin/HostLink.h"
#include "scheduler/TmxSchedulerWindow.h"

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): final, and destroyed as what it is
class SchedulerDesk final : private SchedulerOwner {
 public:
  // All outlive it. `utc` tells whether times are in UTC now.
  SchedulerDesk(TmyComponent& window, MainScheduler& scheduler, HostLink& link, const HostInfo& host, const bool& utc);

  void View();
  void NewTask();
  void Schedule(const TuneTarget& station);

  void TasksLoaded() { view_->TasksChanged(); }
  void TasksCame(uint32_t count) { view_->TasksCame(count); }
  void ZoneChanged() { view_->ZoneChanged(); }
  void Ticked();

  // Of which place and columns are kept.
  [[nodiscard]] TmxSchedulerWindow& SchedulerWindow() noexcept { return *view_; }

 private:
  TmyTypeList<TmxTask>& Tasks() noexcept override { return scheduler_.Tasks(); }
  const TmxTask* RunningTask() const noexcept override { return scheduler_.RunningTask(); }
  bool IsUtc() const noexcept override { return utc_; }
  const HostInfo& Host() const noexcept override { return host_; }
  uint32_t CurrentFrequencyRaw() noexcept override { return link_.CurrentFrequencyRaw(); }
  TmyComponent& Window() noexcept override { return window_; }

  TmyComponent& window_;
  MainScheduler& scheduler_;
  HostLink& link_;
  const HostInfo& host_;
  const bool& utc_;
  TmxSchedulerWindow* view_;         // belongs to its window, which the main window owns
  const TmxTask* marked_ = nullptr;  // as shown; only compared
};

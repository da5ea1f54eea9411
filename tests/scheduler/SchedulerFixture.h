// Marlux 3. What the tests of the scheduler's windows share: an owner with tasks, zone and host, half an hour before
// midnight.
#pragma once

#include "foundation/Clock.h"
#include "scheduler/SchedulerOwner.h"
#include "scheduler/TaskTime.h"
#include "scheduler/TmxSchedulerWindow.h"
#include "tests/support/FakeHost.h"
#include "tests/toolkit/InDialog.h"

class SchedulerFixture : public testing::Test, public SchedulerOwner {
 public:
  SchedulerFixture() {
    Clock::Hold({2026, 11, 6, 21, 23, 30, 0, 0}, 7200);
    scheduler_ = new TmxSchedulerWindow(*this);
    scheduler_->Open();
  }
  ~SchedulerFixture() override {
    window_->Destroy();
    Clock::Release();
  }

  TmyTypeList<TmxTask>& Tasks() noexcept override { return tasks_; }
  const TmxTask* RunningTask() const noexcept override { return nullptr; }
  bool IsUtc() const noexcept override { return utc_; }
  const HostInfo& Host() const noexcept override { return host_; }
  uint32_t CurrentFrequencyRaw() noexcept override { return 9420000; }
  TmyComponent& Window() noexcept override { return *window_; }

  TmyTypeList<TmxTask> tasks_;
  HostInfo host_ = HostInfo::Copy(HostBlockOfReceiver().data());  // up to 30 MHz, modes 1 and 9
  bool utc_ = true;
  TmyComponent* window_ = new TmyComponent("Owner", WS_POPUP | WS_VISIBLE, 0, 0, 0, 300, 200, nullptr);
  TmxSchedulerWindow* scheduler_;
};

// Marlux 3. What the scheduler's windows need of the main window, which implements it and outlives them.
#pragma once

#include "foundation/TmyTypeList.h"
#include "plugin/HostInfo.h"
#include "scheduler/TmxTask.h"
#include "toolkit/myComponents.h"

class SchedulerOwner {
 public:
  // In the order of preference. The windows add, change and delete tasks at any message.
  [[nodiscard]] virtual TmyTypeList<TmxTask>& Tasks() noexcept = 0;
  [[nodiscard]] virtual const TmxTask* RunningTask() const noexcept = 0;  // one of Tasks() that is recording, or null
  [[nodiscard]] virtual bool IsUtc() const noexcept = 0;                  // times are shown in UTC
  [[nodiscard]] virtual const HostInfo& Host() const noexcept = 0;
  // The host's answer as it stands. The host may close the plug-in inside: look at Window().IsAlive() afterwards.
  [[nodiscard]] virtual uint32_t CurrentFrequencyRaw() noexcept = 0;
  [[nodiscard]] virtual TmyComponent& Window() noexcept = 0;

 protected:
  ~SchedulerOwner() = default;  // nobody here owns it
};

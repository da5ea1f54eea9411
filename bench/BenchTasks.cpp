// What scheduled recordings cost while none is due: the tick that runs twice a second.

#include <cstdlib>
#include <string>

#include "bench/AllocationCount.h"
#include "bench/Bench.h"
#include "bench/HostedPlugin.h"
#include "foundation/TmyFile.h"
#include "scheduler/NewTask.h"
#include "scheduler/SchedulerEngine.h"
#include "tests/support/FreshDocumentsFolder.h"

namespace {

constexpr uint32_t kTasks = 1000;
constexpr uint32_t kTicks = 1000;
constexpr uint32_t kRuns = 21;
constexpr double kAim = 50.0;  // ms for all ticks of a run

// Nothing is recorded, so nobody asks it.
class NoOwner final : public RecordingOwner {
 public:
  bool Tune(uint32_t, uint32_t) override { return false; }
  int64_t CurrentFrequency() override { return 0; }
  void StopMedia() override {}
  void SetCaption(const TmyString&) override {}
  bool IsUtc() const override { return true; }
  TmyMediaPlayer& Media() override { std::abort(); }
  bool IsAlive() const override { return true; }
};

// Only the flag, which is tested last, keeps it from being due.
TmxTask AlmostDue() {
  TmxTask task = NewTask(0, {});
  task.to = {0, UINT32_MAX};
  task.stop = task.start;
  task.enabled = 0;
  return task;
}

// The built module's, all that the timer does included.
void CountAllocations(const ScheduleText& schedule) {
  const FreshDocumentsFolder documents;
  WriteSchedule(documents.DataFolder(), schedule.Given());
  {
    const TmxTask task = AlmostDue();
    TmyFile file((documents.DataFolder() + "\\tasks.mxt").c_str(), GENERIC_WRITE, CREATE_ALWAYS);
    for (uint32_t i = 0; i < kTasks; ++i) file.Write(&task, sizeof task);
  }
  const HostedPlugin plugin;
  if (!plugin.IsLoaded() || !AllocationCount::Install(plugin.Module()) || plugin.Start() == 0) {
    printf("the allocations of a tick cannot be counted\n");
    return;
  }
  const auto tick = [] { SendMessageA(HostedPlugin::Window(), WM_TIMER, 1, 0); };
  tick();
  const uint32_t before = AllocationCount::calls;
  for (uint32_t i = 0; i < kTicks; ++i) tick();
  const uint32_t calls = AllocationCount::calls - before;
  printf("%-44s %7u rows %10u     (aim 0: %s)\n", "allocations of 1,000 ticks of the window", kTasks, calls,
         Bench::Verdict(calls, 0));
  plugin.Close();
  DispatchWaiting();
}

}  // namespace

void BenchTasks(const ScheduleText& schedule) {
  TmyTypeList<TmxTask> tasks;
  for (uint32_t i = 0; i < kTasks; ++i) tasks.Add(std::make_unique<TmxTask>(AlmostDue()));
  NoOwner owner;
  RecordingSession session(owner);
  SchedulerEngine engine(tasks, session);
  const double milliseconds = Bench::MedianMs(
      kRuns, [] {},
      [&] {
        for (uint32_t i = 0; i < kTicks; ++i) engine.Tick();
      });
  Bench::PrintMs("1,000 scheduler ticks, tasks not due", kTasks, milliseconds, kAim);
  CountAllocations(schedule);
}

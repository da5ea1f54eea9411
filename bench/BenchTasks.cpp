// What scheduled recordings cost while none is due: the tick that runs twice a second.

#include <cstdlib>

#include "bench/Bench.h"
#include "scheduler/NewTask.h"
#include "scheduler/SchedulerEngine.h"

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

}  // namespace

// Only the flag, which is tested last, keeps the tasks from being due.
void BenchTasks(const ScheduleText&) {
  TmyTypeList<TmxTask> tasks;
  for (uint32_t i = 0; i < kTasks; ++i) {
    TmxTask task = NewTask(0, {});
    task.to = {0, UINT32_MAX};
    task.stop = task.start;
    task.enabled = 0;
    tasks.Add(std::make_unique<TmxTask>(task));
  }
  NoOwner owner;
  RecordingSession session(owner);
  SchedulerEngine engine(tasks, session);
  const double milliseconds = Bench::MedianMs(
      kRuns, [] {},
      [&] {
        for (uint32_t i = 0; i < kTicks; ++i) engine.Tick();
      });
  Bench::PrintMs("1,000 scheduler ticks, tasks not due", kTasks, milliseconds, kAim);
}

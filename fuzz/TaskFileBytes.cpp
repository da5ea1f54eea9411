#include "fuzz/Fuzz.h"
#include "scheduler/TaskDue.h"
#include "scheduler/TaskFile.h"
#include "scheduler/TaskTime.h"

// What is read is written again, with the last record filled up.
void Try(Input& input) {
  constexpr TaskDate kNow = {0x11223344, 0x01DCA000};
  const std::string_view bytes = input.Rest();
  const std::string path = FileOf("tasks.mxt", bytes);
  TmyTypeList<TmxTask> tasks;
  TaskFile::Load(path.c_str(), tasks, kNow);
  REQUIRE(tasks.Count() == (bytes.size() + sizeof(TmxTask) - 1) / sizeof(TmxTask));
  for (uint32_t i = 0; i < tasks.Count(); ++i) {
    const TmxTask& task = *tasks.Get(i);
    if (IsDue(task, MomentOf(task.from))) REQUIRE(task.enabled != 0 && (task.days & kEveryDay) != 0);
    const auto time = TimeOfDate(task.to);
    const uint64_t lost = time ? task.to.Ticks() - DateOfTime(*time).Ticks() : 0;
    REQUIRE(lost < kTicksPerSecond / 1000);
  }
  REQUIRE(TaskFile::Save(path.c_str(), tasks));
  const std::string saved = ReadFileBytes(path);
  REQUIRE(saved.size() == tasks.Count() * sizeof(TmxTask) && saved.starts_with(bytes));
}

#include "scheduler/TaskFile.h"

#include <cstring>
#include <new>

#include "foundation/SwapFile.h"

namespace {
// A foreign file may be large: it is cut piece by piece, and one call to the system brings many records.
constexpr uint32_t kRecordsAtOnce = 64;
}  // namespace

TmxTask TaskFile::TaskOf(std::span<const uint8_t> bytes, TaskDate localNow) noexcept {
  TmxTask task = {};
  task.from = task.to = localNow;
  std::memcpy(&task, bytes.data(), bytes.size() < sizeof task ? bytes.size() : sizeof task);
  return task;
}

void TaskFile::Load(const TmyString& path, TmyTypeList<TmxTask>& tasks, TaskDate localNow) {
  TmyFile file(path, GENERIC_READ, OPEN_EXISTING);
  uint8_t bytes[kRecordsAtOnce * sizeof(TmxTask)];
  while (const uint32_t got = file.ReadSome(bytes, sizeof bytes)) {
    for (uint32_t at = 0; at < got; at += sizeof(TmxTask)) {
      std::unique_ptr<TmxTask> task(new (std::nothrow) TmxTask(TaskOf({bytes + at, bytes + got}, localNow)));
      if (!task || !tasks.Add(std::move(task))) return;
    }
  }
}

bool TaskFile::Save(const TmyString& path, const TmyTypeList<TmxTask>& tasks) {
  SwapFile file(path);
  for (uint32_t i = 0; i < tasks.Count(); ++i) file.Write(tasks.Get(i), sizeof(TmxTask));
  return file.Commit();
}

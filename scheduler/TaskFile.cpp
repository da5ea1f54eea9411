#include "scheduler/TaskFile.h"

#include <cstring>
#include <new>
#include <optional>

#include "foundation/SwapFile.h"

namespace {
// A foreign file may be large: it is cut piece by piece, and one call to the system brings many records.
constexpr uint32_t kRecordsAtOnce = 64;

bool AddAll(std::span<const uint8_t> bytes, TmyTypeList<TmxTask>& tasks, TaskDate localNow) {
  for (size_t at = 0; at < bytes.size(); at += sizeof(TmxTask)) {
    std::unique_ptr<TmxTask> task(new (std::nothrow) TmxTask(TaskFile::TaskOf(bytes.subspan(at), localNow)));
    if (!task || !tasks.Add(std::move(task))) return false;
  }
  return true;
}

}  // namespace

TmxTask TaskFile::TaskOf(std::span<const uint8_t> bytes, TaskDate localNow) noexcept {
  TmxTask task = {};
  task.from = task.to = localNow;
  std::memcpy(&task, bytes.data(), bytes.size() < sizeof task ? bytes.size() : sizeof task);
  return task;
}

bool TaskFile::Load(const TmyString& path, TmyTypeList<TmxTask>& tasks, TaskDate localNow) {
  TmyFile file(path, GENERIC_READ, OPEN_EXISTING);
  if (!file.IsOpen()) return file.OpenError() == ERROR_FILE_NOT_FOUND;
  const uint32_t before = tasks.Count();
  uint8_t bytes[kRecordsAtOnce * sizeof(TmxTask)];
  std::optional<uint32_t> got;
  while ((got = file.ReadSome(bytes, sizeof bytes)).value_or(0) > 0) {
    if (!AddAll({bytes, *got}, tasks, localNow)) got.reset();
    if (!got) break;
  }
  while (!got && tasks.Count() > before) tasks.Delete(tasks.Count() - 1);
  return got.has_value();
}

bool TaskFile::Save(const TmyString& path, const TmyTypeList<TmxTask>& tasks) {
  SwapFile file(path);
  for (uint32_t i = 0; i < tasks.Count(); ++i) file.Write(tasks.Get(i), sizeof(TmxTask));
  return file.Commit();
}

#include "app/MainScheduler.h"

#include <algorithm>

#include "foundation/Clock.h"
#include "plugin/DataFolders.h"
#include "scheduler/TaskFile.h"
#include "scheduler/TaskTime.h"

namespace {

constexpr uint32_t kFirstPause = 60000;  // ms; twice as long each time, for a share that is gone may hold the thread
constexpr uint32_t kLongestPause = 3600000;

bool AreEqual(const TmyTypeList<TmxTask>& tasks, const std::vector<TmxTask>& others) noexcept {
  const bool isSameCount = tasks.Count() == others.size();
  for (uint32_t i = 0; isSameCount && i < tasks.Count(); ++i) {
    if (*tasks.Get(i) != others[i]) return false;
  }
  return isSameCount;
}

std::vector<TmxTask> Copied(const TmyTypeList<TmxTask>& tasks) {
  std::vector<TmxTask> copy;
  for (uint32_t i = 0; i < tasks.Count(); ++i) copy.push_back(*tasks.Get(i));
  return copy;
}

bool IsThere(const TmyString& path) noexcept {
  return GetFileAttributesA(path.Chars()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

void MainScheduler::LoadTasks() {
  loadedAt_ = DateOfTime(Clock::Local());
  isFileMissed_ = !TaskFile::Load(DataFolder() + TaskFile::kName, tasks_, loadedAt_);
  triedAt_ = Clock::Ticks();
  pause_ = kFirstPause;
  known_ = Copied(tasks_);
}

uint32_t MainScheduler::ReadMissed() {
  if (!isFileMissed_ || Clock::Ticks() - triedAt_ < pause_) return 0;
  triedAt_ = Clock::Ticks();
  pause_ = std::min(2 * pause_, kLongestPause);
  TmyTypeList<TmxTask> filed;
  if (!TaskFile::Load(DataFolder() + TaskFile::kName, filed, loadedAt_)) return 0;
  std::vector<TmxTask> known = Copied(filed);
  if (!PutBefore(filed)) return 0;
  known_.swap(known);
  isFileMissed_ = false;
  return static_cast<uint32_t>(known_.size());
}

// A file that still cannot be read is not replaced: there may be more in it than in the list. Nor is one that another
// window wrote, when this one has nothing new to say.
void MainScheduler::SaveTasks() {
  const TmyString path = DataFolder() + TaskFile::kName;
  TmyTypeList<TmxTask> filed;
  const bool isRead = TaskFile::Load(path, filed, loadedAt_);
  if (isFileMissed_) {
    if (!isRead) return;
    if (!PutBefore(filed)) return;
    isFileMissed_ = false;
  } else if (isRead && IsThere(path) && AreEqual(tasks_, known_) && !AreEqual(filed, known_)) {
    return;
  }
  if (TaskFile::Save(path, tasks_)) known_ = Copied(tasks_);
}

// All of them or, without memory, none.
bool MainScheduler::PutBefore(TmyTypeList<TmxTask>& filed) {
  const uint32_t before = tasks_.Count();
  bool fits = true;
  while (fits && filed.Count() > 0) fits = tasks_.Insert(filed.Extract(filed.Count() - 1), 0);
  if (fits && tasks_.MakeRoomForOne()) return true;  // an open editor counts on it
  while (tasks_.Count() > before) tasks_.Delete(0);
  return false;
}

const TmxTask* MainScheduler::RunningTask() const noexcept {
  const TmxTask* const task = session_.IsRecording() ? session_.CurrentTask() : nullptr;
  return tasks_.IndexOf(task) < 0 ? nullptr : task;
}

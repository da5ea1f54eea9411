#include "app/MainScheduler.h"

#include "foundation/Clock.h"
#include "plugin/DataFolders.h"
#include "scheduler/TaskFile.h"
#include "scheduler/TaskTime.h"

void MainScheduler::LoadTasks() {
  isFileMissed_ = !TaskFile::Load(DataFolder() + TaskFile::kName, tasks_, DateOfTime(Clock::Local()));
}

// A file that still cannot be read is not replaced: there may be more in it than in the list.
void MainScheduler::SaveTasks() {
  if (isFileMissed_) {
    TmyTypeList<TmxTask> missed;
    if (!TaskFile::Load(DataFolder() + TaskFile::kName, missed, DateOfTime(Clock::Local()))) return;
    isFileMissed_ = false;
    for (uint32_t i = missed.Count(); i > 0; --i) tasks_.Insert(missed.Extract(i - 1), 0);
  }
  TaskFile::Save(DataFolder() + TaskFile::kName, tasks_);
}

const TmxTask* MainScheduler::RunningTask() const noexcept {
  const TmxTask* const task = session_.IsRecording() ? session_.CurrentTask() : nullptr;
  return tasks_.IndexOf(task) < 0 ? nullptr : task;
}

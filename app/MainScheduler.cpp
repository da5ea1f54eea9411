#include "app/MainScheduler.h"

#include "foundation/Clock.h"
#include "plugin/DataFolders.h"
#include "scheduler/TaskFile.h"
#include "scheduler/TaskTime.h"

void MainScheduler::LoadTasks() {
  TaskFile::Load(DataFolder() + TaskFile::kName, tasks_, DateOfTime(Clock::Local()));
}

void MainScheduler::SaveTasks() const {
  TaskFile::Save(DataFolder() + TaskFile::kName, tasks_);
}

const TmxTask* MainScheduler::RunningTask() const noexcept {
  const TmxTask* const task = session_.IsRecording() ? session_.CurrentTask() : nullptr;
  return tasks_.IndexOf(task) < 0 ? nullptr : task;
}

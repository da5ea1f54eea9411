// Marlux 3. The main window's room for scheduled recordings: the list of tasks, their file, and what starts and ends
// them.
//
//   scheduler_.Tick();   // first at each timer event; the host runs inside and may close the plug-in
#pragma once

#include "scheduler/SchedulerEngine.h"

class MainScheduler {
 public:
  // The session outlives it.
  explicit MainScheduler(RecordingSession& session) noexcept : session_(session), engine_(tasks_, session) {}

  void LoadTasks();  // appends those of the file
  // In place of the file. Tasks that were in it when it could not be read are put in front of the list.
  void SaveTasks();
  void Tick() { engine_.Tick(); }

  [[nodiscard]] TmyTypeList<TmxTask>& Tasks() noexcept { return tasks_; }
  // One of Tasks() that is being recorded, or null.
  [[nodiscard]] const TmxTask* RunningTask() const noexcept;

 private:
  RecordingSession& session_;
  TmyTypeList<TmxTask> tasks_;
  SchedulerEngine engine_;
  bool isFileMissed_ = false;  // it was there and could not be read
};

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
  void SaveTasks() const;
  void Tick() { engine_.Tick(); }

  [[nodiscard]] TmyTypeList<TmxTask>& Tasks() noexcept { return tasks_; }
  // One of Tasks() that is being recorded, or null.
  [[nodiscard]] const TmxTask* RunningTask() const noexcept;

 private:
  RecordingSession& session_;
  TmyTypeList<TmxTask> tasks_;
  SchedulerEngine engine_;
};

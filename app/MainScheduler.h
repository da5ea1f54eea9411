// Marlux 3. The main window's room for scheduled recordings: the list of tasks, their file, and what starts and ends
// them.
//
//   scheduler_.Tick();   // first at each timer event; the host runs inside and may close the plug-in
#pragma once

#include <vector>

#include "scheduler/SchedulerEngine.h"

class MainScheduler {
 public:
  // The session outlives it.
  explicit MainScheduler(RecordingSession& session) noexcept : session_(session), engine_(tasks_, session) {}

  void LoadTasks();  // appends those of the file
  // From time to time while it could not be read: shares and drives may come later than we do. How many tasks have come
  // now; they are in front of those that were entered meanwhile.
  uint32_t ReadMissed();
  // In place of the file. Tasks that were in it when it could not be read are put in front of the list. A list that is
  // still as it was loaded or saved last leaves a file with other tasks alone: another window has written them.
  void SaveTasks();
  void Tick() { engine_.Tick(); }

  [[nodiscard]] TmyTypeList<TmxTask>& Tasks() noexcept { return tasks_; }
  // One of Tasks() that is being recorded, or null.
  [[nodiscard]] const TmxTask* RunningTask() const noexcept;

 private:
  bool PutBefore(TmyTypeList<TmxTask>& filed);

  RecordingSession& session_;
  TmyTypeList<TmxTask> tasks_;
  SchedulerEngine engine_;
  std::vector<TmxTask> known_;  // as loaded or saved last
  TaskDate loadedAt_ = {};      // local; what completes a short record, the same at each look at the file
  bool isFileMissed_ = false;   // it was there and could not be read
  uint32_t triedAt_ = 0;        // ticks
  uint32_t pause_ = 0;          // ms to the next try
};

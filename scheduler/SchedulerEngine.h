// Marlux 3. Starts the first task that is due and ends it when it no longer is, or is gone from the list.
//
//   SchedulerEngine engine(tasks, session);
//   engine.Tick();   // twice a second
//
// The list's order is the order of preference: a later task waits until the running one ends. A recording that somebody
// else ended begins again, in another file, for as long as its task is due: a task takes the receiver back. What the
// user records from the grid does not keep a task from starting. A tick allocates nothing but to start a recording.
#pragma once

#include "foundation/FrameFlag.h"
#include "foundation/TmyTypeList.h"
#include "scheduler/RecordingSession.h"
#include "scheduler/TaskDue.h"

class SchedulerEngine {
 public:
  // Both must outlive the engine.
  SchedulerEngine(TmyTypeList<TmxTask>& tasks, RecordingSession& session) noexcept : tasks_(tasks), session_(session) {}
  SchedulerEngine(const SchedulerEngine&) = delete;
  SchedulerEngine& operator=(const SchedulerEngine&) = delete;

  // The host runs inside. It may change the list, let this be called again, or close the plug-in: ask the owner's
  // IsAlive afterwards.
  void Tick();

 private:
  bool StartFirstDue(const TaskMoment& now);  // false when nothing was started

  TmyTypeList<TmxTask>& tasks_;
  RecordingSession& session_;
  FrameFlag isStarting_;
};

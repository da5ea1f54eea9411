// Marlux 3. The recording that the plug-in started itself, for a task or from the grid: names its file, tunes the
// receiver, starts the media panel, and knows when it is over. The panel's own record button is served, too, but makes
// no session: IsRecording stays false.
//
//   session.Start("rec", 9420000, 1, nullptr);    // "...\Recordings\rec_9420000_20260301_140509.wav"
//   session.FrequencyChanged();                   // by the host: the recording is over
//
// Nothing is said when the file cannot be made.
#pragma once

#include "foundation/FrameFlag.h"
#include "scheduler/RecordingOwner.h"
#include "scheduler/TmyMediaPlayer.h"

struct TmxTask;

class RecordingSession {
 public:
  static constexpr char kTask[] = "task";
  static constexpr char kFromGrid[] = "rec";

  explicit RecordingSession(RecordingOwner& owner) noexcept : owner_(owner) {}

  // The prefix begins the file's name. `task` is null for a recording from the grid, before which the one of a task
  // ends. The host runs inside and a task may begin there, also while a recording from the grid tunes, which is then
  // over. False in that case, when the host closed the plug-in, from the grid while another start tunes, and without
  // memory.
  bool Start(const char* prefix, uint64_t frequencyHz, uint32_t mode, TmxTask* task);
  // From high on the stack, each time: who asks from deeper would not see that a tuning has ended by an exception of
  // the host's.
  void Ticked() noexcept { static_cast<void>(isTuning_.IsUp()); }
  void Stop();              // finishes the file of whatever the panel records; the task itself stays as it is
  void FrequencyChanged();  // told by the host
  void MediaStateChanged(int32_t state);
  // For the panel's record button.
  [[nodiscard]] RecordingParameters ButtonParameters();

  [[nodiscard]] bool IsRecording() const noexcept { return isRecording_; }
  // The receiver is being tuned for a recording: whoever tunes it now would have that one record something else.
  [[nodiscard]] bool IsTuning() const noexcept { return isTuning_.IsUp(); }
  // May still be set when the user has stopped the recording by hand: then it is not started again.
  [[nodiscard]] TmxTask* CurrentTask() const noexcept { return task_; }

 private:
  bool Tune(uint32_t frequencyHz, uint32_t mode);

  RecordingOwner& owner_;
  TmxTask* task_ = nullptr;  // the task list's; only compared with its entries, it may have been deleted
  bool isRecording_ = false;
  FrameFlag isTuning_;
  uint32_t starts_ = 0;  // tells a start from one that the host begins inside it
};

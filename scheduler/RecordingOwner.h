// Marlux 3. What recording needs of the main window.
//
// The host runs inside Tune and CurrentFrequency and, through its state changes, inside Media().StartRecording and
// StopMedia. It may close the plug-in there: ask IsAlive afterwards. The owner's object itself outlives the message
// or notification that it is called in.
#pragma once

#include "foundation/TmyString.h"

class TmyMediaPlayer;

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): nobody destroys an owner through it
class RecordingOwner {
 public:
  RecordingOwner() noexcept = default;
  RecordingOwner(const RecordingOwner&) = delete;
  RecordingOwner& operator=(const RecordingOwner&) = delete;

  // The host's whole tuning sequence. False when the plug-in was closed inside.
  virtual bool Tune(uint32_t frequencyHz, uint32_t mode) = 0;
  [[nodiscard]] virtual int64_t CurrentFrequency() = 0;  // Hz, asked of the host
  virtual void StopMedia() = 0;  // finishes the file of whatever the panel records, and begins no next part of it
  virtual void SetCaption(const TmyString& caption) = 0;
  [[nodiscard]] virtual bool IsUtc() const = 0;       // file names tell UTC, not local time
  [[nodiscard]] virtual TmyMediaPlayer& Media() = 0;  // there while IsAlive
  [[nodiscard]] virtual bool IsAlive() const = 0;

 protected:
  ~RecordingOwner() = default;
};

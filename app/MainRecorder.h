// Marlux 3. The main window's room for recording and playback: the media panel, what it records from the host, and who
// may tune the receiver meanwhile.
//
//   recorder_.TuneStation(target);      // nothing while a recording of ours runs
//   recorder_.RecordStation(target);
//   recorder_.Audio(a, block);          // a notification: the caller holds the window
//
// The host runs inside each of these and may close the plug-in: the window is asked IsAlive afterwards.
#pragma once

#include "app/ScheduleGrid.h"
#include "app/StatusBar.h"
#include "plugin/HostLink.h"
#include "scheduler/AudioFeed.h"
#include "scheduler/RecordingSession.h"

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): final, and destroyed as what it is
class MainRecorder final : private RecordingOwner {
 public:
  // All outlive it. `utc` tells whether times are in UTC now.
  MainRecorder(TmyComponent& window, HostLink& link, StatusBar& status, const bool& utc);

  void TuneStation(const TuneTarget& target);
  void RecordStation(const TuneTarget& target);
  void Audio(uint32_t kind, const void* block) { feed_.Feed(kind, block); }
  void FrequencyChanged() { session_.FrequencyChanged(); }  // told by the host
  void Stop() { session_.Stop(); }  // ends what is recorded, a session of ours or not; the file is whole afterwards
  void KeepAwake() const noexcept;  // to be called all the time: while it records the machine does not fall asleep
  // The window goes: files are whole afterwards. The host, which does not find the window any more, is told that
  // nothing plays now if something did, and nothing else.
  void End();

  [[nodiscard]] RecordingSession& Session() noexcept { return session_; }
  struct Heights {
    int least, most;  // pixels of the strip with panel and counts: with everything in one row, and in rows of its own
  };
  [[nodiscard]] Heights HeightsFor(int width) const;
  void LayOut(const RECT& strip);

 private:
  bool Tune(uint32_t frequencyHz, uint32_t mode) override;
  int64_t CurrentFrequency() override { return link_.CurrentFrequency(); }
  void StopMedia() override;
  void SetCaption(const TmyString& caption) override { window_.SetCaption(caption); }
  bool IsUtc() const override { return utc_; }
  TmyMediaPlayer& Media() override { return media_; }
  bool IsAlive() const override { return window_.IsAlive(); }

  [[nodiscard]] int MediaWidth(int width) const;
  void NameRecording(RecordingParameters& parameters);
  void StateChanged(TmyMediaPlayer& media);
  void Follow();
  void FileFull(const TmyString& next);
  void FileFailed(const TmyString& next);

  TmyComponent& window_;
  HostLink& link_;
  StatusBar& status_;
  const bool& utc_;
  TmyMediaPlayer& media_;  // belongs to its window
  AudioFeed feed_;
  RecordingSession session_;
  bool hasEnded_ = false;  // the recording that the note may be about
};

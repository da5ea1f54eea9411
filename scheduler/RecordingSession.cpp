#include "scheduler/RecordingSession.h"

#include <string>

#include "foundation/Clock.h"
#include "foundation/FrequencyText.h"
#include "plugin/DataFolders.h"
#include "plugin/HostLink.h"

namespace {

constexpr uint32_t kSampleRate = 44100;  // until the first block tells another one
constexpr uint32_t kButtonSampleRate = 16000;
constexpr uint32_t kChannels = 1;
constexpr uint32_t kBits = 16;

// The year is padded with blanks: it has four digits for as long as it matters.
TmyString PathOf(const char* prefix, const std::string& frequency, bool utc) {
  const SYSTEMTIME time = utc ? Clock::Utc() : Clock::Local();
  return RecordingsFolder() + Formatted("\\%s_%s_%4d%02d%02d_%02d%02d%02d.wav", prefix, frequency.c_str(), time.wYear,
                                        time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond);
}

}  // namespace

// The session begins only after the tuning: what the host says about its frequency inside is about the one before.
bool RecordingSession::Start(const char* prefix, uint64_t frequencyHz, uint32_t mode, TmxTask* task) {
  if (!task && task_) Stop();
  if (!owner_.IsAlive()) return false;
  const TmyString path = PathOf(prefix, std::to_string(frequencyHz), owner_.IsUtc());
  if (!owner_.Tune(static_cast<uint32_t>(frequencyHz), mode)) return false;
  owner_.Media().StartRecording(path, kSampleRate, kChannels, kBits);
  if (!owner_.IsAlive()) return false;
  isRecording_ = true;
  task_ = task;
  owner_.SetCaption(TmyString(kProductCaption) + " recording " + FormatKhz(static_cast<int64_t>(frequencyHz)));
  return true;
}

void RecordingSession::Stop() {
  isRecording_ = false;
  task_ = nullptr;
  owner_.SetCaption(kProductCaption);
  owner_.Media().StopRecording();  // last: the host is told inside
}

void RecordingSession::FrequencyChanged() {
  if (isRecording_) Stop();
}

void RecordingSession::MediaStateChanged(int32_t state) {
  if (!isRecording_ || state == TmyMediaPlayer::kRecording || state == TmyMediaPlayer::kRecordingPaused) return;
  isRecording_ = false;
  owner_.SetCaption(kProductCaption);
}

RecordingParameters RecordingSession::ButtonParameters() {
  const int64_t frequency = owner_.CurrentFrequency();
  return {PathOf(kFromGrid, std::to_string(frequency), owner_.IsUtc()), kButtonSampleRate, kChannels, kBits};
}

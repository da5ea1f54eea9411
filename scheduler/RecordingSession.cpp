#include "scheduler/RecordingSession.h"

#include <new>
#include <string>

#include "foundation/Clock.h"
#include "foundation/FrequencyText.h"
#include "foundation/LostTexts.h"
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

// The session begins only after the tuning: what the host says about its frequency inside is about the one before. It
// begins before the recording: what the host does when it is told of that, retune or stop, ends the session as always.
bool RecordingSession::Start(const char* prefix, uint64_t frequencyHz, uint32_t mode, TmxTask* task) {
  if (isTuning_.IsUp() && !task) return false;
  if (!task && task_) Stop();
  if (!owner_.IsAlive()) return false;
  const uint32_t lost = LostTexts();
  const TmyString path = PathOf(prefix, std::to_string(frequencyHz), owner_.IsUtc());
  const TmyString caption = TmyString(kProductCaption) + " recording " + FormatUnsignedKhz(frequencyHz);
  if (LostTexts() != lost) return false;
  const uint32_t start = ++starts_;
  if (!Tune(static_cast<uint32_t>(frequencyHz), mode) || start != starts_) return false;
  isRecording_ = true;
  task_ = task;
  try {
    owner_.Media().StartRecording(path, kSampleRate, kChannels, kBits);
  } catch (const std::bad_alloc&) {
    Stop();
    throw;
  }
  if (!owner_.IsAlive()) return false;
  MediaStateChanged(owner_.Media().StateCode());
  if (isRecording_ && start == starts_) owner_.SetCaption(caption);
  return true;
}

bool RecordingSession::Tune(uint32_t frequencyHz, uint32_t mode) {
  const FrameFlag::Scope tuning(isTuning_);
  return owner_.Tune(frequencyHz, mode);
}

void RecordingSession::Stop() {
  isRecording_ = false;
  task_ = nullptr;
  owner_.SetCaption(kProductCaption);
  owner_.StopMedia();  // last: the host is told inside
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
  const uint32_t lost = LostTexts();
  const TmyString path = PathOf(kFromGrid, std::to_string(frequency), owner_.IsUtc());
  if (LostTexts() != lost) throw std::bad_alloc();
  return {path, kButtonSampleRate, kChannels, kBits};
}

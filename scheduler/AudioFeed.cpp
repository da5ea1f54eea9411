#include "scheduler/AudioFeed.h"

#include "foundation/Trace.h"
#include "plugin/HostLink.h"

namespace {
constexpr uint16_t kBits = 16;
}

void AudioFeed::Feed(uint32_t kind, const void* hostBlock) {
  const AudioBlock block(hostBlock);
  if (Accepts(kind, block) && FitFormat(block) && FitSize(block.Bytes())) Write(kind, block);
}

// A file that could not be made takes nothing.
bool AudioFeed::Accepts(uint32_t kind, const AudioBlock& block) const noexcept {
  const bool isKnown = kind == HostNotification::kAudioPcm16 || kind == HostNotification::kAudioFloat;
  const TmyWaveFilePCM* const file = recorder_.File();
  const bool records = recorder_.StateCode() == TmyMediaPlayer::kRecording && file && file->IsOpen();
  return isKnown && records && block.IsUsable();
}

bool AudioFeed::FitFormat(const AudioBlock& block) {
  TmyWaveFilePCM& file = *recorder_.File();
  const bool fits =
      file.SampleRate() == block.SampleRate() && file.Channels() == block.Channels() && file.BitsPerSample() == kBits;
  if (fits) return true;
  if (file.DataSize() != 0) return GoOnInNextFile(block.SampleRate(), block.Channels());
  file.SetFormat(block.SampleRate(), block.Channels(), kBits);
  return true;
}

bool AudioFeed::FitSize(uint64_t bytes) {
  const TmyWaveFilePCM& file = *recorder_.File();
  if (file.DataSize() + bytes <= largestData_) return true;
  if (!GoOnInNextFile(file.SampleRate(), file.Channels())) return false;
  const TmyString name = recorder_.FileName();
  Trace::Line("Recording goes on in %s, the file before is full", name.Chars());
  fileFull(name);
  return true;
}

// Between the two calls and inside them the host may end the recording, start another one, close the plug-in.
bool AudioFeed::GoOnInNextFile(uint32_t sampleRate, uint32_t channels) {
  const struct Change {
    bool& flag;
    ~Change() { flag = false; }  // also when there is no memory for the next file
  } change{isChangingFile_ = true};
  const TmyString next = recorder_.FileName() + "_.wav";
  recorder_.StopRecording();
  const bool goesOn = isChangingFile_ && recorder_.IsAlive() && recorder_.StateCode() == TmyMediaPlayer::kIdle;
  if (goesOn) recorder_.StartRecording(next, sampleRate, channels, kBits);
  return goesOn && recorder_.IsAlive() && recorder_.StateCode() == TmyMediaPlayer::kRecording && recorder_.File();
}

void AudioFeed::Write(uint32_t kind, const AudioBlock& block) {
  const auto bytes = static_cast<uint32_t>(block.Bytes());
  if (kind == HostNotification::kAudioPcm16) {
    recorder_.Write(block.Samples(), bytes);
    return;
  }
  if (converted_.size() < bytes) converted_.resize(bytes);
  block.ConvertFloats({converted_.data(), bytes});
  recorder_.Write(converted_.data(), bytes);
}

#include "scheduler/AudioFeed.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "foundation/Trace.h"
#include "plugin/HostLink.h"

namespace {

constexpr uint16_t kBits = 16;
constexpr size_t kMostKept = 1 << 20;  // bytes; blocks of usual length need less

bool IsReadable(const MEMORY_BASIC_INFORMATION& region) noexcept {
  constexpr DWORD kReadable = PAGE_READONLY | PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READ |
                              PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
  return region.State == MEM_COMMIT && (region.Protect & kReadable) != 0 && (region.Protect & PAGE_GUARD) == 0;
}

// How many bytes from there on can be read, at most `bytes`. Asks the system once a region.
uint32_t ReadableBytes(const uint8_t* from, uint32_t bytes) noexcept {
  const auto begin = reinterpret_cast<uintptr_t>(from);
  const uint64_t end = uint64_t{begin} + bytes;
  uint64_t at = begin;
  MEMORY_BASIC_INFORMATION region = {};
  while (at < end && VirtualQuery(reinterpret_cast<const void*>(static_cast<uintptr_t>(at)), &region, sizeof region)) {
    if (!IsReadable(region)) break;
    at = uint64_t{reinterpret_cast<uintptr_t>(region.BaseAddress)} + region.RegionSize;
  }
  return static_cast<uint32_t>(std::min(at, end) - begin);
}

}  // namespace

void AudioFeed::Feed(uint32_t kind, const void* hostBlock) {
  if (goesOn_ && !recorder_.FileChange().IsUp()) {  // an exception of the host's has ended the change
    goesOn_ = false;
    fileChanged();
  }
  const AudioBlock block(hostBlock);
  if (Accepts(kind, block) && FitFormat(block) && FitSize(block)) Write(kind, block);
}

// A file that could not be made takes nothing.
bool AudioFeed::Accepts(uint32_t kind, const AudioBlock& block) const noexcept {
  const bool isKnown = kind == HostNotification::kAudioPcm16 || kind == HostNotification::kAudioFloat;
  const TmyWaveFilePCM* const file = recorder_.File();
  const bool records = recorder_.StateCode() == TmyMediaPlayer::kRecording && file && file->IsOpen();
  return isKnown && records && block.IsUsable();
}

bool AudioFeed::HasFormatOf(const AudioBlock& block) const {
  const TmyWaveFilePCM& file = *recorder_.File();
  return file.SampleRate() == block.SampleRate() && file.Channels() == block.Channels() &&
         file.BitsPerSample() == kBits;
}

bool AudioFeed::FitFormat(const AudioBlock& block) {
  if (HasFormatOf(block)) return true;
  TmyWaveFilePCM& file = *recorder_.File();
  if (file.DataSize() != 0) return GoOnInNextFile(block, recorder_.FileName() + "_.wav");
  file.SetFormat(block.SampleRate(), block.Channels(), kBits);
  return true;
}

bool AudioFeed::FitSize(const AudioBlock& block) {
  const TmyWaveFilePCM& file = *recorder_.File();
  if (uint64_t{file.DataSize()} + file.FillerSize() + block.Bytes() <= largestData_) return true;
  const TmyString next = recorder_.FileName() + "_.wav";
  if (!GoOnInNextFile(block, next)) return false;
  Trace::Line("Recording goes on in %s, the file before is full", next.Chars());
  fileFull(next);
  return true;
}

// The host runs inside and may end the recording, start another one, send audio of a third format, close the plug-in.
bool AudioFeed::GoOnInNextFile(const AudioBlock& block, const TmyString& next) {
  if (next.Length() <= recorder_.FileName().Length()) return false;  // no memory: it could be the file itself
  bool hasMemory = true;
  {
    const FrameFlag::Scope change(recorder_.FileChange());
    goesOn_ = true;
    try {
      BeginFile(next, block);
    } catch (const std::bad_alloc&) {
      hasMemory = false;
    }
    goesOn_ = false;
  }
  if (!recorder_.IsAlive()) return false;
  recorder_.KeepFocus();
  const TmyWaveFilePCM* const file = recorder_.File();
  const bool begun = recorder_.StateCode() == TmyMediaPlayer::kRecording && file && recorder_.FileName() == next;
  const bool goesOn = begun && file->IsOpen() && HasFormatOf(block);
  const bool failed = !hasMemory || (begun && !file->IsOpen());
  fileChanged();
  if (failed && recorder_.IsAlive()) TellFailure(next);
  return goesOn && recorder_.IsAlive();
}

void AudioFeed::BeginFile(const TmyString& next, const AudioBlock& block) {
  recorder_.StopRecording();
  const bool goesOn = goesOn_ && recorder_.IsAlive() && recorder_.StateCode() == TmyMediaPlayer::kIdle;
  if (goesOn) recorder_.StartRecording(next, block.SampleRate(), block.Channels(), kBits);
}

void AudioFeed::TellFailure(const TmyString& next) {
  Trace::Line("Recording ended: %s cannot be made", next.Chars());
  fileFailed(next);
}

// Blocks of several channels may end before their length says so: what cannot be read becomes silence.
void AudioFeed::Write(uint32_t kind, const AudioBlock& block) {
  const auto bytes = static_cast<uint32_t>(block.Bytes());
  if (kind == HostNotification::kAudioFloat) {
    uint8_t* const samples = Room(bytes);
    block.ConvertFloats({samples, bytes});
    recorder_.Write(samples, bytes);
    return;
  }
  const uint32_t certain = block.CertainBytes();
  const uint32_t there = certain + ReadableBytes(block.Samples() + certain, bytes - certain);
  if (there == bytes) {
    recorder_.Write(block.Samples(), bytes);
    return;
  }
  uint8_t* const samples = Room(bytes);
  std::memcpy(samples, block.Samples(), there);
  std::memset(samples + there, 0, bytes - there);
  recorder_.Write(samples, bytes);
}

uint8_t* AudioFeed::Room(uint32_t bytes) {
  if (converted_.size() < bytes) converted_.resize(bytes);
  return converted_.data();
}

void AudioFeed::FreeMemory() noexcept {
  if (converted_.capacity() > kMostKept) std::vector<uint8_t>().swap(converted_);
}

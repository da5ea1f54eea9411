// Marlux 3. Brings the host's audio into the recording that runs: one file for as long as format and size allow, then
// the next one, named like the first with "_.wav" appended.
//
//   feed.Feed(a, blockPointer);      // inside the host's notification; writes before it returns
//
// A block is dropped when nothing records, when its kind is unknown and when it is not usable. No memory is taken for
// 16-bit samples, and for floats only until the largest block has come.
#pragma once

#include <vector>

#include "scheduler/AudioBlock.h"
#include "scheduler/TmyMediaPlayer.h"
#include "scheduler/TmyWaveFilePCM.h"

class AudioFeed {
 public:
  // A file's data stays within `largestData` bytes.
  explicit AudioFeed(TmyMediaPlayer& recorder, uint64_t largestData = TmyWaveFilePCM::kLargestData) noexcept
      : recorder_(recorder), largestData_(largestData) {}

  TmyEvent<const TmyString&> fileFull;  // the recording goes on in this file

  // `kind` is the notification's sub-code. The recorder's events run the host inside, when a new file begins: the panel
  // may be gone afterwards, its object must be held.
  void Feed(uint32_t kind, const void* hostBlock);

  // One file has ended and the next one not begun: the recording goes on.
  [[nodiscard]] bool IsChangingFile() const noexcept { return isChangingFile_; }
  void EndRecording() noexcept { isChangingFile_ = false; }  // at such a moment: no next file is begun

 private:
  bool Accepts(uint32_t kind, const AudioBlock& block) const noexcept;
  bool FitFormat(const AudioBlock& block);  // false when the recording is over
  bool FitSize(uint64_t bytes);
  bool GoOnInNextFile(uint32_t sampleRate, uint32_t channels);
  void Write(uint32_t kind, const AudioBlock& block);

  TmyMediaPlayer& recorder_;
  uint64_t largestData_;
  std::vector<uint8_t> converted_;
  bool isChangingFile_ = false;
};

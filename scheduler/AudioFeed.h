// Marlux 3. Brings the host's audio into the recording that runs: one file for as long as format and size allow, then
// the next one, named like the one before with "_.wav" appended: "a.wav", "a.wav_.wav", "a.wav_.wav_.wav". The chain
// goes on until a name is longer than the system takes, which ends the recording.
//
//   feed.Feed(a, blockPointer);      // inside the host's notification; writes before it returns
//
// A block is dropped when nothing records, when its kind is unknown and when it is not usable. 16-bit samples go out
// from where they lie; memory is taken only for what must be converted or completed, until the largest block has come.
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

  TmyEvent<const TmyString&> fileFull;    // the recording goes on in this file
  TmyEvent<> fileChanged;                 // a change is over, well or not: the recorder's state is the real one again
  TmyEvent<const TmyString&> fileFailed;  // after that: this next file cannot be made, nothing is recorded any more

  // `kind` is the notification's sub-code. The recorder's events run the host inside, when a new file begins: the panel
  // may be gone afterwards, its object must be held.
  void Feed(uint32_t kind, const void* hostBlock);

  // One file has ended and the next one not begun: the recording goes on.
  [[nodiscard]] bool IsChangingFile() const noexcept { return goesOn_ && recorder_.FileChange().IsUp(); }
  void EndRecording() noexcept { goesOn_ = false; }  // at such a moment: no next file is begun
  void FreeMemory() noexcept;                        // what a recording of large blocks has left

 private:
  bool Accepts(uint32_t kind, const AudioBlock& block) const noexcept;
  [[nodiscard]] bool HasFormatOf(const AudioBlock& block) const;
  // False when the block is to be dropped.
  bool FitFormat(const AudioBlock& block);
  bool FitSize(const AudioBlock& block);
  bool GoOnInNextFile(const AudioBlock& block, const TmyString& next);
  void BeginFile(const TmyString& next, const AudioBlock& block);
  void TellFailure(const TmyString& next);
  void Write(uint32_t kind, const AudioBlock& block);
  uint8_t* Room(uint32_t bytes);

  TmyMediaPlayer& recorder_;
  uint64_t largestData_;
  std::vector<uint8_t> converted_;
  bool goesOn_ = false;  // a next file is to be begun
};

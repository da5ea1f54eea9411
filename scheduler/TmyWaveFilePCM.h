// Marlux 3. A recording: PCM samples that are streamed into a WAV file, which becomes whole when the object goes.
//
//   TmyWaveFilePCM file(folder + "\\news.wav", 44100, 1, 16, 0x100000);
//   if (block.rate != file.SampleRate() && file.DataSize() == 0) file.SetFormat(block.rate, 1, 16);
//   file.Write(block.samples, block.bytes);
//
// The file begins with 4096 bytes (a whole block where blocks are larger), the header and zeros; samples overwrite the
// zeros. It is never cut, so it has at least this length, unless its drive was too late for these. A recording whose
// header and samples stay below one block of the volume ends with the header as it was made: the first format, sizes 40
// and 0.
//
// Errors: as those of TmyFileDirect; when the device hangs at the end, too, the file stays as it is, with a header that
// tells of no samples. The header never tells of samples that did not reach the disk. After a write that
// failed, samples begin at a whole frame again, so channels do not change places.
#pragma once

#include "scheduler/TmyFileDirect.h"
#include "scheduler/WaveHeader.h"

class TmyWaveFilePCM : public TmyFileDirect {
 public:
  // What the 32-bit sizes of the header hold, with room to spare for the header. Whoever has more to write takes
  // another file before.
  static constexpr uint32_t kLargestData = 0xFFFFFFFF - uint32_t{sizeof(WaveHeader)};

  // Replaces an existing file. A file that cannot be made stays unopened.
  TmyWaveFilePCM(const TmyString& name, uint32_t sampleRate, uint32_t channels, uint32_t bits, uint32_t bufferSize);
  ~TmyWaveFilePCM() override;

  // Any length, whole frames or not. False when not all samples went out and, without writing any, when the data would
  // become larger than kLargestData.
  bool Write(const void* samples, uint32_t length) override;
  // For a recording without samples yet: those that are there keep their bytes.
  void SetFormat(uint32_t sampleRate, uint32_t channels, uint32_t bits) noexcept;

  [[nodiscard]] uint32_t SampleRate() const noexcept { return header_.sampleRate; }  // Hz
  [[nodiscard]] uint32_t Channels() const noexcept { return header_.channels; }
  [[nodiscard]] uint32_t BitsPerSample() const noexcept { return header_.bitsPerSample; }
  [[nodiscard]] uint32_t DataSize() const;    // bytes of samples taken so far; 0 when not open
  [[nodiscard]] uint32_t FillerSize() const;  // bytes of silence that the next Write puts before its samples

 private:
  bool WriteFirstBlock();
  bool AppendHeader();
  bool PatchHeader();
  void RewriteHeader();
  bool CompleteFrame();

  WaveHeader header_;
  bool lastWriteFailed_ = false;
};

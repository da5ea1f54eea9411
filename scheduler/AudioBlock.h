// Marlux 3. One block of audio as the host hands it over, and its samples as a recording has them.
//
//   const AudioBlock block(pointer);                 // copies the 16 bytes of the header, not the samples
//   if (!block.IsUsable()) return;
//   recorder.Write(block.Samples(), block.Bytes());  // 16-bit samples
//   block.ConvertFloats(buffer);                     // float samples
//
// The header counts sample values, yet a recording gets channels x count x 2 bytes of it. With one channel these are
// the samples. With more, the block is only known to hold the first count of the 16-bit values: what lies behind them
// may be samples or not, and whoever reads it must look first whether there is memory at all. Of floats there are
// count, and zeros follow what they give.
#pragma once

#include <span>

#include "foundation/Compiler.h"

class AudioBlock {
 public:
  static constexpr uint64_t kMostBytes = uint64_t{64} << 20;

  explicit AudioBlock(const void* hostBlock) noexcept;  // null: a block that is not usable

  [[nodiscard]] uint32_t SampleRate() const noexcept { return header_.sampleRate; }  // Hz
  // Of a usable block.
  [[nodiscard]] uint16_t Channels() const noexcept { return static_cast<uint16_t>(header_.channels); }
  [[nodiscard]] uint32_t Count() const noexcept { return header_.count; }
  // What goes into a recording; more than kMostBytes stands for any larger number, too.
  [[nodiscard]] uint64_t Bytes() const noexcept;
  // Of those, the ones that are certain to lie at Samples() in a usable block of 16-bit values.
  [[nodiscard]] uint32_t CertainBytes() const noexcept { return header_.count * 2; }
  // There is a block, it has a format, and it is not too large to be true.
  [[nodiscard]] bool IsUsable() const noexcept;
  [[nodiscard]] const uint8_t* Samples() const noexcept { return samples_; }

  // Takes the samples as floats. `to` has Bytes() of a usable block.
  void ConvertFloats(std::span<uint8_t> to) const noexcept;

 private:
  struct Header {
    uint32_t sampleRate;
    uint32_t reserved;
    uint32_t channels;
    uint32_t count;
  };
  static_assert(sizeof(Header) == 16);
  static_assert(offsetof(Header, channels) == 8 && offsetof(Header, count) == 12);

  Header header_ = {};
  const uint8_t* samples_ = nullptr;  // the host's
};

// 1.0 is 32767; truncated toward zero. Beyond that the low 16 bits of the whole number are left, 0 where it has more
// than 32 bits or is none.
[[nodiscard]] int16_t SampleOfFloat(float value) noexcept;

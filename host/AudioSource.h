// Marlux host. Made-up receiver audio in blocks of 20 ms.
#pragma once

#include <cstdint>
#include <vector>

#include "host/Protocol.h"

enum class AudioKind { kOff, kTone, kNoise };

struct AudioFormat {
  AudioKind kind = AudioKind::kOff;
  uint32_t sampleRate = 48000;
  uint32_t channels = 1;
  bool isFloat = false;
};

class AudioSource {
 public:
  static constexpr uint32_t kBlocksPerSecond = 50;
  static constexpr uint32_t kLowestRate = 1000;
  static constexpr uint32_t kHighestRate = 384000;
  static constexpr uint32_t kMostChannels = 8;

  // False when the rate or the channels are out of range; the source then stays as it was.
  [[nodiscard]] bool SetFormat(const AudioFormat& format);
  [[nodiscard]] const AudioFormat& Format() const { return format_; }
  [[nodiscard]] bool IsOn() const { return format_.kind != AudioKind::kOff; }

  // The next block: an AudioHeader and its samples, valid until the next call. All channels carry the same signal.
  // Behind the samples lies silence for a reader that takes the count for one channel's.
  [[nodiscard]] const AudioHeader* NextBlock();
  [[nodiscard]] uint32_t SubCode() const { return format_.isFloat ? Notification::kFloat : Notification::kPcm16; }

 private:
  [[nodiscard]] float NextValue();

  AudioFormat format_;
  std::vector<uint8_t> block_;
  uint32_t framesOwed_ = 0;  // in 1/50 frame: rates that 50 does not divide
  double phase_ = 0;
  uint32_t random_ = 1;
};

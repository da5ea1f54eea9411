#include "host/AudioSource.h"

#include <cmath>
#include <cstring>
#include <numbers>

namespace {

constexpr double kToneHertz = 440;
constexpr double kVolume = 0.5;

}  // namespace

bool AudioSource::SetFormat(const AudioFormat& format) {
  if (format.sampleRate < kLowestRate || format.sampleRate > kHighestRate) return false;
  if (format.channels < 1 || format.channels > kMostChannels) return false;
  format_ = format;
  framesOwed_ = 0;
  return true;
}

const AudioHeader* AudioSource::NextBlock() {
  framesOwed_ += format_.sampleRate;
  const uint32_t frames = framesOwed_ / kBlocksPerSecond;
  framesOwed_ %= kBlocksPerSecond;
  const uint32_t count = frames * format_.channels;
  const uint32_t width = format_.isFloat ? 4 : 2;
  block_.assign(sizeof(AudioHeader) + size_t{count} * format_.channels * width, 0);
  const AudioHeader header{format_.sampleRate, 0, format_.channels, count};
  std::memcpy(block_.data(), &header, sizeof header);
  uint8_t* to = block_.data() + sizeof header;
  for (uint32_t frame = 0; frame < frames; ++frame) {
    const float value = NextValue();
    const auto integer = static_cast<int16_t>(std::lround(value * 32767.0F));
    for (uint32_t channel = 0; channel < format_.channels; ++channel, to += width) {
      std::memcpy(to, format_.isFloat ? static_cast<const void*>(&value) : &integer, width);
    }
  }
  return reinterpret_cast<const AudioHeader*>(block_.data());
}

float AudioSource::NextValue() {
  if (format_.kind == AudioKind::kNoise) {
    random_ = random_ * 1664525 + 1013904223;
    return static_cast<float>(kVolume * static_cast<int32_t>(random_) / 2147483648.0);
  }
  phase_ = std::fmod(phase_ + kToneHertz / format_.sampleRate, 1.0);
  return static_cast<float>(kVolume * std::sin(2 * std::numbers::pi * phase_));
}

#include "scheduler/AudioBlock.h"

#include <algorithm>
#include <cstring>

#include "foundation/FloatMode.h"

AudioBlock::AudioBlock(const void* hostBlock) noexcept {
  if (!hostBlock) return;
  std::memcpy(&header_, hostBlock, sizeof header_);  // it may lie at any address
  samples_ = static_cast<const uint8_t*>(hostBlock) + sizeof header_;
}

uint64_t AudioBlock::Bytes() const noexcept {
  const uint64_t values = uint64_t{header_.channels} * header_.count;
  return std::min(values, kMostBytes) * 2;
}

bool AudioBlock::IsUsable() const noexcept {
  const bool hasFormat = header_.sampleRate != 0 && header_.channels != 0 && header_.channels <= UINT16_MAX;
  return samples_ != nullptr && hasFormat && Bytes() <= kMostBytes;
}

// Hosts let anything through, NaNs as well.
void AudioBlock::ConvertFloats(std::span<uint8_t> to) const noexcept {
  const OwnFloatMode ours;
  const uint8_t* from = samples_;
  uint8_t* at = to.data();
  for (uint32_t i = 0; i < header_.count; ++i, from += sizeof(float), at += sizeof(int16_t)) {
    float value = 0;
    std::memcpy(&value, from, sizeof value);
    const int16_t sample = SampleOfFloat(value);
    std::memcpy(at, &sample, sizeof sample);
  }
  std::fill(at, to.data() + to.size(), uint8_t{0});
}

int16_t SampleOfFloat(float value) noexcept {
  constexpr double kPastHighest = 2147483648.0;
  const double scaled = static_cast<double>(value) * 32767.0;
  const bool fits = scaled > -kPastHighest - 1 && scaled < kPastHighest;  // not for a NaN
  return fits ? static_cast<int16_t>(static_cast<int32_t>(scaled)) : int16_t{0};
}

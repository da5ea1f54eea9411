#include "host/HostBlock.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

constexpr uint32_t kPointers[] = {172, 184, 188, 196, 224, 236, 264, 308, 316, 324, 336, 360, 384};
constexpr uint32_t kReceiverDigits = 76;
constexpr uint32_t kRangePointer = 224;
constexpr uint32_t kModeCount = 228;
constexpr uint32_t kModesPointer = 236;

constexpr uint32_t kSlots = 400;  // where the pointers lead: 16 bytes each, the modes behind them
constexpr uint32_t kSlotSize = 16;
constexpr uint32_t kModes = kSlots + kSlotSize * static_cast<uint32_t>(std::size(kPointers));
constexpr uint32_t kModeEntrySize = 28;

constexpr uint32_t kLowestKhz = 9;
constexpr uint32_t kHighestKhz = 30000;
constexpr uint32_t kModeNumbers[] = {1, 8, 12, 4, 5, 0, 2, 13, 14, 18};  // AM AMS AMN LSB USB CW FMN DSB ISB DRM
constexpr uint32_t kLength = kModes + kModeEntrySize * static_cast<uint32_t>(std::size(kModeNumbers));

}  // namespace

void HostBlock::SetShape(Shape shape, uint32_t size) {
  shape_ = shape;
  Build();
  if (shape != Shape::kSize) return;
  std::vector<uint8_t> cut(std::max<uint32_t>(size, sizeof size));
  std::copy_n(bytes_.begin(), std::min(cut.size(), bytes_.size()), cut.begin());
  bytes_ = std::move(cut);  // its pointers lead to the old place now, which a plug-in has to bear
  Put(0, size);
}

void HostBlock::Build() {
  bytes_.assign(kLength, 0);
  const auto start = reinterpret_cast<uint32_t>(bytes_.data());
  Put(0, kLength);
  std::memcpy(&bytes_[kReceiverDigits], "03", 2);
  for (uint32_t i = 0; i < std::size(kPointers); ++i) {
    const uint32_t slot = kSlots + i * kSlotSize;
    Put(kPointers[i], start + slot);
    if (kPointers[i] == kRangePointer) {
      Put(slot, kLowestKhz);
      Put(slot + 4, kHighestKhz);
    }
  }
  Put(kModeCount, static_cast<uint32_t>(std::size(kModeNumbers)));
  Put(kModesPointer, start + kModes);
  for (uint32_t i = 0; i < std::size(kModeNumbers); ++i) Put(kModes + i * kModeEntrySize, kModeNumbers[i]);
}

void HostBlock::Put(uint32_t offset, uint32_t word) {
  std::memcpy(&bytes_[offset], &word, sizeof word);
}

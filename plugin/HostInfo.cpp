#include "plugin/HostInfo.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr uint32_t kSmallestSize = 4;  // the size field itself
constexpr uint32_t kReceiverDigits = 76;
constexpr uint32_t kRangePointer = 224;
constexpr uint32_t kModeCount = 228;
constexpr uint32_t kModesPointer = 236;
constexpr uint32_t kModeEntrySize = 28;  // the mode's number is its first field; we need no more of it

uint32_t AddressOf(const void* place) noexcept {
  return reinterpret_cast<uint32_t>(place);
}

bool IsDigit(uint8_t character) noexcept {
  return character >= '0' && character <= '9';
}

}  // namespace

HostInfo HostInfo::Copy(const void* block) noexcept {
  HostInfo copy;
  if (!block) return copy;
  uint32_t size = 0;
  std::memcpy(&size, block, sizeof size);
  if (size < kSmallestSize || size > kLargestSize) return copy;
  copy.bytes_.reset(static_cast<uint8_t*>(std::calloc(size, 1)));
  if (!copy.bytes_) return copy;
  copy.size_ = size;
  std::memcpy(copy.bytes_.get(), block, size);
  copy.MovePointers(AddressOf(copy.bytes_.get()) - AddressOf(block));
  return copy;
}

void HostInfo::MovePointers(uint32_t distance) noexcept {
  for (const uint32_t offset : kPointerOffsets) {
    uint32_t pointer = WordAt(offset);
    if (pointer == 0) continue;
    pointer += distance;
    std::memcpy(bytes_.get() + offset, &pointer, sizeof pointer);
  }
}

bool HostInfo::Holds(uint32_t offset, uint32_t count) const noexcept {
  return count <= size_ && offset <= size_ - count;
}

uint32_t HostInfo::WordAt(uint32_t offset) const noexcept {
  uint32_t word = 0;
  if (Holds(offset, sizeof word)) std::memcpy(&word, bytes_.get() + offset, sizeof word);
  return word;
}

std::optional<uint32_t> HostInfo::Target(uint32_t pointerOffset, uint32_t count) const noexcept {
  const uint32_t pointer = WordAt(pointerOffset);
  if (pointer == 0) return std::nullopt;
  // A pointer before the block wraps to an offset far behind its end.
  const uint32_t offset = pointer - AddressOf(bytes_.get());
  if (!Holds(offset, count)) return std::nullopt;
  return offset;
}

std::optional<HostInfo::FrequencyRange> HostInfo::FrequencyRangeKhz() const noexcept {
  const auto at = Target(kRangePointer, 8);
  if (!at) return std::nullopt;
  return FrequencyRange{WordAt(*at), WordAt(*at + 4)};
}

std::vector<int32_t> HostInfo::ModeNumbers() const {
  std::vector<int32_t> numbers;
  const auto at = Target(kModesPointer, kModeEntrySize);
  const auto told = static_cast<int32_t>(WordAt(kModeCount));
  if (!at || told <= 0) return numbers;
  const uint32_t count = std::min(static_cast<uint32_t>(told), (size_ - *at) / kModeEntrySize);
  numbers.reserve(count);
  for (uint32_t i = 0; i < count; ++i) numbers.push_back(static_cast<int32_t>(WordAt(*at + i * kModeEntrySize)));
  return numbers;
}

uint32_t HostInfo::ReceiverDefault() const noexcept {
  uint32_t number = 0;
  uint32_t digits = 0;
  while (digits < 2 && Holds(kReceiverDigits + digits, 1)) {
    const uint8_t character = bytes_.get()[kReceiverDigits + digits];
    if (!IsDigit(character)) break;
    number = number * 10 + (character - uint32_t{'0'});
    ++digits;
  }
  return digits == 0 ? kDefaultReceiver : number;
}

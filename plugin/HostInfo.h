// Marlux 3. Our own copy of the block in which the host describes its receiver.
//
//   HostInfo info = HostInfo::Copy(hostInfo);
//   if (const auto range = info.FrequencyRangeKhz()) Limit(range->lowestKhz, range->highestKhz);
//
// The block starts with its size in bytes and holds pointers into itself, which the copy moves to where it lies. A
// block that makes no sense gives an empty copy, and a pointer that leads outside the copy reads as absent: nothing
// outside the copy is ever read.
#pragma once

#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

#include "foundation/Compiler.h"

class HostInfo {
 public:
  // A larger size is taken for rubbish: the block describes one receiver.
  static constexpr uint32_t kLargestSize = 16u << 20;
  // Where the block holds pointers into itself; zero stands for none.
  static constexpr uint32_t kPointerOffsets[] = {172, 184, 188, 196, 224, 236, 264, 308, 316, 324, 336, 360, 384};
  static constexpr uint32_t kDefaultReceiver = 3;

  struct FrequencyRange {
    uint32_t lowestKhz;
    uint32_t highestKhz;
  };

  HostInfo() noexcept = default;  // empty

  // Reads as many bytes as the block's first field says. Null, a size below 4 or above kLargestSize and short memory
  // give an empty copy.
  [[nodiscard]] static HostInfo Copy(const void* block) noexcept;

  [[nodiscard]] bool IsEmpty() const noexcept { return size_ == 0; }
  [[nodiscard]] uint32_t Size() const noexcept { return size_; }
  [[nodiscard]] const uint8_t* Bytes() const noexcept { return bytes_.get(); }  // null when empty

  [[nodiscard]] std::optional<FrequencyRange> FrequencyRangeKhz() const noexcept;
  // The numbers of the receiver's modes in the host's order, only as many as lie wholly inside the block.
  [[nodiscard]] std::vector<int32_t> ModeNumbers() const;
  // The one or two decimal digits at offset 76 as a number; kDefaultReceiver when there is no digit.
  [[nodiscard]] uint32_t ReceiverDefault() const noexcept;

 private:
  struct Free {
    void operator()(uint8_t* bytes) const noexcept { std::free(bytes); }
  };

  [[nodiscard]] bool Holds(uint32_t offset, uint32_t count) const noexcept;
  [[nodiscard]] uint32_t WordAt(uint32_t offset) const noexcept;  // 0 outside the block
  void MovePointers(uint32_t distance) noexcept;
  // Where in the block the pointer at `pointerOffset` leads, when `count` bytes from there are inside it.
  [[nodiscard]] std::optional<uint32_t> Target(uint32_t pointerOffset, uint32_t count) const noexcept;

  std::unique_ptr<uint8_t, Free> bytes_;
  uint32_t size_ = 0;
};

// Marlux 3. A byte block that doubles when it is short of room and halves when little of it is used.
#pragma once

#include "foundation/TmyObject.h"

class TmyBuffer : public TmyObject {
 public:
  static constexpr uint32_t kDefaultCapacity = 97;
  static constexpr uint32_t kDefaultMaximum = 524288000;

  TmyBuffer();
  // Bytes; a maximum of 0 is no limit. The initial capacity is also the smallest that shrinking reaches.
  TmyBuffer(uint32_t initial, uint32_t maximum);
  ~TmyBuffer() override;

  // Asks for a capacity of n bytes and returns the one that it got: cut to the maximum, never below the minimum, the
  // size or 4. When memory is short the capacity stays.
  virtual uint32_t Reserve(uint32_t n);
  // Sets the size in use, growing by doubling, halving once when n is below an eighth of the capacity. A size that
  // cannot be had is cut to the maximum or to the capacity, whichever is reached. New bytes are not cleared.
  virtual void SetSize(uint32_t n);
  // Removes bytes from the middle; what lies outside is ignored. Always true.
  virtual bool DeleteRange(uint32_t offset, uint32_t count);
  [[nodiscard]] virtual uint32_t Size() const noexcept { return size_; }
  [[nodiscard]] virtual uint32_t Maximum() const noexcept { return maximum_; }
  [[nodiscard]] virtual uint32_t Capacity() const noexcept { return capacity_; }
  [[nodiscard]] virtual uint32_t FreeRoom() const noexcept { return capacity_ - size_; }

  [[nodiscard]] uint8_t* Data() noexcept { return data_; }
  [[nodiscard]] const uint8_t* Data() const noexcept { return data_; }
  [[nodiscard]] uint32_t Minimum() const noexcept { return minimum_; }

 protected:
  struct Unallocated {};
  explicit TmyBuffer(Unallocated) noexcept {}  // every field zero
  // Doubles the capacity as often as n needs. The maximum or a lack of memory may leave less: the caller looks.
  void GrowTo(uint32_t n);

  uint8_t* data_ = nullptr;  // owned, from the C heap (a derived class may keep it elsewhere and frees it itself)
  uint32_t capacity_ = 0;
  uint32_t size_ = 0;
  uint32_t maximum_ = 0;
  uint32_t minimum_ = 0;
};

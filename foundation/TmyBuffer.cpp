#include "foundation/TmyBuffer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {
constexpr uint32_t kSmallestBlock = 4;
}

TmyBuffer::TmyBuffer() : TmyBuffer(kDefaultCapacity, kDefaultMaximum) {}

TmyBuffer::TmyBuffer(uint32_t initial, uint32_t maximum) : maximum_(maximum) {
  if (initial == 0) return;
  data_ = static_cast<uint8_t*>(std::malloc(initial));
  // A first block that cannot be had must not stay the smallest that is asked for, or nothing would ever fit.
  capacity_ = minimum_ = data_ ? initial : 0;
}

TmyBuffer::~TmyBuffer() {
  std::free(data_);
}

uint32_t TmyBuffer::Reserve(uint32_t n) {
  if (maximum_ != 0) n = std::min(n, maximum_);
  n = std::max({n, minimum_, size_, kSmallestBlock});
  if (n == capacity_) return capacity_;
  auto* moved = static_cast<uint8_t*>(std::realloc(data_, n));
  if (!moved) return capacity_;
  data_ = moved;
  capacity_ = n;
  return capacity_;
}

void TmyBuffer::GrowTo(uint32_t n) {
  if (capacity_ >= n) return;
  uint64_t doubled = capacity_ > 0 ? capacity_ : kSmallestBlock;
  while (doubled < n) doubled *= 2;
  Reserve(static_cast<uint32_t>(std::min<uint64_t>(doubled, UINT32_MAX)));
  if (capacity_ < n) Reserve(n);  // short of memory for the doubled block, perhaps not for what is needed
}

void TmyBuffer::SetSize(uint32_t n) {
  if (maximum_ != 0) n = std::min(n, maximum_);
  GrowTo(n);
  // The size is still the old one: what is in use now survives, and one more call may be needed to get down to half.
  if (n < capacity_ / 8) Reserve(capacity_ / 2);
  size_ = std::min(n, capacity_);
}

bool TmyBuffer::DeleteRange(uint32_t offset, uint32_t count) {
  if (offset >= size_ || count == 0) return true;
  count = std::min(count, size_ - offset);
  std::memmove(data_ + offset, data_ + offset + count, size_ - offset - count);
  SetSize(size_ - count);
  return true;
}

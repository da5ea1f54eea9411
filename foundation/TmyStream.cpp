#include "foundation/TmyStream.h"

#include <algorithm>
#include <cstring>

TmyStream::TmyStream(uint32_t initial, uint32_t maximum) : TmyBuffer(initial, maximum) {}

uint32_t TmyStream::Write(const void* source, uint32_t n) {
  const TmyCriticalSection::Guard guard(section_);
  if (!source) return 0;
  n = std::min(n, UINT32_MAX - size_);
  // The bytes may be our own, from Lock: the block is about to move.
  const uintptr_t offset = reinterpret_cast<uintptr_t>(source) - reinterpret_cast<uintptr_t>(data_);
  const bool own = offset < size_;
  GrowTo(size_ + n);
  const uint32_t limit = maximum_ == 0 ? capacity_ : std::min(capacity_, maximum_);
  n = std::min(n, limit - std::min(limit, size_));
  if (n == 0) return 0;
  std::memmove(data_ + size_, own ? data_ + offset : source, n);
  SetSize(size_ + n);
  return n;
}

uint32_t TmyStream::Read(void* destination, uint32_t n, bool remove) {
  const TmyCriticalSection::Guard guard(section_);
  if (n == 0 || n > size_) return 0;
  if (destination) std::memcpy(destination, data_, n);
  if (remove) Consume(n);
  return n;
}

void TmyStream::Clear() {
  const TmyCriticalSection::Guard guard(section_);
  DeleteRange(0, size_);
  Reserve(0);
}

uint8_t* TmyStream::Lock() {
  section_.Enter();
  return data_;
}

void TmyStream::UnlockAndConsume(uint32_t n) {
  Consume(std::min(n, size_));
  section_.Leave();
}

void TmyStream::Consume(uint32_t n) noexcept {
  DeleteRange(0, n);
}

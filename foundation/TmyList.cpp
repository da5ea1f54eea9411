#include "foundation/TmyList.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr uint32_t kEntrySize = sizeof(void*);

// Bytes of so many entries; what no address space can hold is cut to the most that it could.
uint32_t BytesOf(uint32_t count) noexcept {
  return std::min<uint32_t>(count, UINT32_MAX / kEntrySize) * kEntrySize;
}

}  // namespace

TmyList::TmyList() noexcept : TmyBuffer(Unallocated{}) {}

TmyList::TmyList(uint32_t initialCount, uint32_t maximumCount)
    : TmyBuffer(BytesOf(initialCount), BytesOf(maximumCount)) {}

void TmyList::Insert(void* item, uint32_t index) {
  if (MakeRoomForOne()) PlaceAt(item, index);
}

bool TmyList::TryAdd(void* item) {
  const uint32_t before = Count();
  Add(item);
  return Count() > before;
}

void* TmyList::Delete(uint32_t index) {
  return TakeAt(index);
}

bool TmyList::MakeRoomForOne() {
  if (maximum_ != 0 && (size_ >= maximum_ || maximum_ - size_ < kEntrySize)) return false;
  if (FreeRoom() < kEntrySize) GrowTo(size_ + kEntrySize);
  return FreeRoom() >= kEntrySize;
}

void TmyList::PlaceAt(void* item, uint32_t index) {
  const uint32_t count = Count();
  index = std::min(index, count);
  SetSize((count + 1) * kEntrySize);
  void** const at = Entries() + index;
  std::memmove(at + 1, at, (count - index) * kEntrySize);
  *at = item;
}

void* TmyList::TakeAt(uint32_t index) {
  const uint32_t count = Count();
  if (index >= count) return nullptr;
  void** const at = Entries() + index;
  void* const item = *at;
  std::memmove(at, at + 1, (count - index - 1) * kEntrySize);
  SetSize((count - 1) * kEntrySize);
  return item;
}

void*& TmyList::Get(uint32_t index) noexcept {
  static void* empty;
  if (index < Count()) return Entries()[index];
  empty = nullptr;
  return empty;
}

void* TmyList::Get(uint32_t index) const noexcept {
  return index < Count() ? Entries()[index] : nullptr;
}

int32_t TmyList::IndexOf(const void* item) const noexcept {
  for (uint32_t left = Count(); left > 0; --left) {
    if (Entries()[left - 1] == item) return static_cast<int32_t>(left - 1);
  }
  return -1;
}

void TmyList::Exchange(uint32_t i, uint32_t j) noexcept {
  if (i < Count() && j < Count()) std::swap(Entries()[i], Entries()[j]);
}

void TmyList::Clear() {
  for (uint32_t left = Count(); left > 0; --left) Delete(left - 1);
  Reserve(0);
}

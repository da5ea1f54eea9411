#include "app/PointerSet.h"

#include <algorithm>
#include <utility>

namespace {

constexpr size_t kSmallestTable = 16;

}  // namespace

// Multiplication spreads addresses, which share their low and their high bits, over the middle ones.
uint32_t PointerSet::Home(const void* pointer) const noexcept {
  const auto address = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(pointer));
  return ((address * 2654435769U) >> 8) & (TableSize() - 1);
}

uint32_t PointerSet::SlotOf(const void* pointer) const noexcept {
  uint32_t slot = Home(pointer);
  while (slots_[slot] && slots_[slot] != pointer) slot = Next(slot);
  return slot;
}

void PointerSet::Grow() {
  std::vector<const void*> old(std::max(slots_.size() * 2, kSmallestTable));
  std::swap(old, slots_);
  for (const void* pointer : old) {
    if (pointer) slots_[SlotOf(pointer)] = pointer;
  }
}

bool PointerSet::Insert(const void* pointer) {
  if (!pointer) return false;
  if (count_ * 2 >= TableSize()) Grow();
  const void*& slot = slots_[SlotOf(pointer)];
  if (slot) return false;
  slot = pointer;
  ++count_;
  return true;
}

bool PointerSet::Erase(const void* pointer) noexcept {
  if (!Contains(pointer)) return false;
  CloseGap(SlotOf(pointer));
  --count_;
  return true;
}

// A search stops at a free slot, so that pointers behind the gap which could have stood in it move up.
void PointerSet::CloseGap(uint32_t gap) noexcept {
  const uint32_t wrap = TableSize() - 1;
  for (uint32_t slot = Next(gap); slots_[slot]; slot = Next(slot)) {
    const uint32_t fromHome = (slot - Home(slots_[slot])) & wrap;
    const uint32_t fromGap = (slot - gap) & wrap;
    if (fromHome < fromGap) continue;
    slots_[gap] = slots_[slot];
    gap = slot;
  }
  slots_[gap] = nullptr;
}

bool PointerSet::Contains(const void* pointer) const noexcept {
  return pointer && !slots_.empty() && slots_[SlotOf(pointer)] == pointer;
}

void PointerSet::Clear() noexcept {
  std::vector<const void*>().swap(slots_);
  count_ = 0;
}

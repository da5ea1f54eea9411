// Marlux 3. A set of pointers that stays quick with hundreds of thousands of them.
#pragma once

#include <vector>

#include "foundation/Compiler.h"

// Open addressing with linear probing in a table that is a power of two and at most half full. Null is never in it.
class PointerSet {
 public:
  // True when the pointer was not in the set before.
  bool Insert(const void* pointer);
  // True when it was in the set.
  bool Erase(const void* pointer) noexcept;
  [[nodiscard]] bool Contains(const void* pointer) const noexcept;
  void Clear() noexcept;  // gives the memory back
  [[nodiscard]] uint32_t Count() const noexcept { return count_; }

 private:
  [[nodiscard]] uint32_t Home(const void* pointer) const noexcept;
  [[nodiscard]] uint32_t Next(uint32_t slot) const noexcept { return (slot + 1) & (TableSize() - 1); }
  [[nodiscard]] uint32_t TableSize() const noexcept { return static_cast<uint32_t>(slots_.size()); }
  // Where the pointer is, or the free slot where it would go. The table must not be empty.
  [[nodiscard]] uint32_t SlotOf(const void* pointer) const noexcept;
  void Grow();
  void CloseGap(uint32_t gap) noexcept;

  std::vector<const void*> slots_;  // null where free; the pointers belong to others
  uint32_t count_ = 0;
};

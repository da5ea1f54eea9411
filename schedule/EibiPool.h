// Marlux 3. Memory for many EiBi records at once.
//
//   EibiPool pool;
//   std::unique_ptr<EibiItem> item(new (pool) EibiItem);   // freed like any other, in any order, also after the pool
//
// A load takes far more records than anything else takes memory, and a heap block for each would slow it. A chunk holds
// a few hundred records, counts those that live, and goes back to the heap with the last of them: no list of chunks,
// nothing shared between loads.
#pragma once

#include "foundation/Compiler.h"

class EibiPool {
 public:
  EibiPool() noexcept = default;
  ~EibiPool() { LeaveChunk(); }
  EibiPool(const EibiPool&) = delete;
  EibiPool& operator=(const EibiPool&) = delete;

  // Memory for one record, from a chunk or by itself; short of memory both throw std::bad_alloc, as new does.
  [[nodiscard]] void* Take();
  [[nodiscard]] static void* TakeSingle();
  static void GiveBack(void* memory) noexcept;  // from either; null is nothing

 private:
  struct Chunk;
  struct Slot;
  static void Release(Chunk* chunk) noexcept;
  void LeaveChunk() noexcept;

  Chunk* chunk_ = nullptr;  // the one being filled; the pool counts as one of its records
  uint32_t taken_ = 0;
};

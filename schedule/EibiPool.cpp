#include "schedule/EibiPool.h"

#include <new>

#include "schedule/EibiItem.h"

namespace {

#ifdef MARLUX_POOL_SLOTS
constexpr uint32_t kSlots = MARLUX_POOL_SLOTS;  // of a build that watches each record
#else
constexpr uint32_t kSlots = 230;  // a little less than 64 KB
#endif

}  // namespace

// A record and, in front of it, the chunk that it lies in; null when it has a heap block to itself.
struct EibiPool::Slot {
  Chunk* chunk;
  alignas(EibiItem) unsigned char record[sizeof(EibiItem)];
};

struct EibiPool::Chunk {
  uint32_t living;
  Slot slots[kSlots];
};

void* EibiPool::Take() {
  if (chunk_ && taken_ == kSlots) LeaveChunk();
  if (!chunk_) {
    chunk_ = static_cast<Chunk*>(::operator new(sizeof(Chunk)));
    chunk_->living = 1;
    taken_ = 0;
  }
  Slot& slot = chunk_->slots[taken_++];
  slot.chunk = chunk_;
  ++chunk_->living;
  return slot.record;
}

void* EibiPool::TakeSingle() {
  auto* slot = static_cast<Slot*>(::operator new(sizeof(Slot)));
  slot->chunk = nullptr;
  return slot->record;
}

void EibiPool::GiveBack(void* memory) noexcept {
  if (!memory) return;
  auto* slot = reinterpret_cast<Slot*>(static_cast<unsigned char*>(memory) - offsetof(Slot, record));
  if (slot->chunk) {
    Release(slot->chunk);
  } else {
    ::operator delete(slot);
  }
}

void EibiPool::Release(Chunk* chunk) noexcept {
  if (--chunk->living == 0) ::operator delete(chunk);
}

void EibiPool::LeaveChunk() noexcept {
  if (chunk_) Release(chunk_);
  chunk_ = nullptr;
}

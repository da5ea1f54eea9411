// Marlux 3. A buffer in reserved address space that commits and gives back whole pages: its data never move.
#pragma once

#include "foundation/TmyBuffer.h"

class TmyBufferVirtual : public TmyBuffer {
 public:
  // Bytes, rounded up to pages. Takes less address space than asked for when there is no more; throws a std::bad_alloc
  // that says "No memory" when the initial pages cannot be committed.
  TmyBufferVirtual(uint32_t initial, uint32_t maximum);
  ~TmyBufferVirtual() override;

  uint32_t Reserve(uint32_t n) override;
  [[nodiscard]] uint32_t PageSize() const noexcept { return pageSize_; }

 private:
  [[nodiscard]] uint32_t RoundUpToPage(uint32_t n) const noexcept;
  void ReserveAddressSpace(uint32_t bytes) noexcept;
  void Free() noexcept;

  uint32_t pageSize_ = 0;
};

#include "foundation/TmyBufferVirtual.h"

#include <windows.h>

#include <algorithm>
#include <new>

namespace {

// All that is thrown is a bad_alloc, which is all that is caught.
class NoMemory : public std::bad_alloc {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "No memory"; }
};

}  // namespace

TmyBufferVirtual::TmyBufferVirtual(uint32_t initial, uint32_t maximum) : TmyBuffer(Unallocated{}) {
  SYSTEM_INFO system;
  GetSystemInfo(&system);
  pageSize_ = system.dwPageSize;

  const uint32_t first = RoundUpToPage(initial);
  ReserveAddressSpace(std::max({first, RoundUpToPage(maximum), pageSize_}));
  if (!data_ || (first > 0 && !VirtualAlloc(data_, first, MEM_COMMIT, PAGE_READWRITE))) {
    Free();
    throw NoMemory();
  }
  capacity_ = minimum_ = first;
}

TmyBufferVirtual::~TmyBufferVirtual() {
  Free();
}

void TmyBufferVirtual::Free() noexcept {
  if (data_) VirtualFree(data_, 0, MEM_RELEASE);
  data_ = nullptr;  // or the base would give it to the C heap
}

// Whole pages; the last page of the address space is the end of counting.
uint32_t TmyBufferVirtual::RoundUpToPage(uint32_t n) const noexcept {
  const uint32_t pages = n / pageSize_ + (n % pageSize_ != 0);
  return std::min(pages, UINT32_MAX / pageSize_) * pageSize_;
}

// Reserves the most that there is, up to `bytes`, and leaves it in data_ and maximum_. A free range that holds so many
// pages holds fewer too, so the largest is found by halving instead of by lowering the request page by page.
void TmyBufferVirtual::ReserveAddressSpace(uint32_t bytes) noexcept {
  const auto reserve = [this](uint32_t count) {
    return VirtualAlloc(nullptr, size_t{count} * pageSize_, MEM_RESERVE | MEM_TOP_DOWN, PAGE_NOACCESS);
  };
  uint32_t pages = bytes / pageSize_;
  void* block = reserve(pages);
  if (!block) {
    uint32_t tooMany = pages;
    pages = 0;
    while (tooMany - pages > 1) {
      const uint32_t middle = pages + (tooMany - pages) / 2;
      void* const probe = reserve(middle);
      (probe ? pages : tooMany) = middle;
      if (probe) VirtualFree(probe, 0, MEM_RELEASE);
    }
    while (pages > 0 && !(block = reserve(pages))) --pages;
  }
  data_ = static_cast<uint8_t*>(block);
  maximum_ = pages * pageSize_;
}

uint32_t TmyBufferVirtual::Reserve(uint32_t n) {
  n = RoundUpToPage(std::max(std::min(std::max(n, minimum_), maximum_), size_));
  if (n > capacity_) {
    if (VirtualAlloc(data_ + capacity_, n - capacity_, MEM_COMMIT, PAGE_READWRITE)) capacity_ = n;
  } else if (n < capacity_) {
    if (VirtualFree(data_ + n, capacity_ - n, MEM_DECOMMIT)) capacity_ = n;
  }
  return capacity_;
}

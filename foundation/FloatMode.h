// Marlux 3. The thread's floating-point control words: how results are rounded, which faults are exceptions. They are
// the host's. Libraries that come with dialogs, printing and sound may change them and leave them so; and a host may
// have set its own, in which our numbers would come out differently.
//
//   const KeptFloatMode kept;     // whatever happens in this block, the host's words come back
//   const OwnFloatMode ours;      // the same, and in the block they are the system's default ones
#pragma once

#include <xmmintrin.h>

#include <cstdint>

class KeptFloatMode {
 public:
  KeptFloatMode() noexcept : sse_(_mm_getcsr()), x87_(X87()) {}
  KeptFloatMode(const KeptFloatMode&) = delete;
  KeptFloatMode& operator=(const KeptFloatMode&) = delete;
  ~KeptFloatMode() {
    if (((_mm_getcsr() ^ sse_) & ~kSseFaultsSeen) != 0) _mm_setcsr(sse_);
    if (X87() != x87_) SetX87(x87_);
  }

 protected:
  // Clears what happened before: a fault that was ignored would become the host's exception with the host's word.
  static void SetX87(uint16_t word) noexcept { asm volatile("fnclex\n\tfldcw %0" : : "m"(word)); }

 private:
  static constexpr uint32_t kSseFaultsSeen = 0x3F;  // flags that every inexact result sets

  [[nodiscard]] static uint16_t X87() noexcept {
    uint16_t word = 0;
    asm volatile("fnstcw %0" : "=m"(word));
    return word;
  }

  uint32_t sse_;
  uint16_t x87_;
};

class OwnFloatMode : public KeptFloatMode {
 public:
  OwnFloatMode() noexcept {
    _mm_setcsr(kSse);
    SetX87(kX87);
  }

 private:  // both: to nearest, no exceptions; x87: 53 bits
  static constexpr uint32_t kSse = 0x1F80;
  static constexpr uint16_t kX87 = 0x027F;
};

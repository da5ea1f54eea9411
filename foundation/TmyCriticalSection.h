// Marlux 3. A Windows critical section, and the guard that leaves it again.
#pragma once

#include <windows.h>

#include "foundation/TmyObject.h"

class TmyCriticalSection : public TmyObject {
 public:
  TmyCriticalSection() noexcept { InitializeCriticalSection(&section_); }
  ~TmyCriticalSection() override { DeleteCriticalSection(&section_); }
  void Enter() noexcept { EnterCriticalSection(&section_); }
  void Leave() noexcept { LeaveCriticalSection(&section_); }

  class Guard {
   public:
    explicit Guard(TmyCriticalSection& section) noexcept : section_(section) { section_.Enter(); }
    ~Guard() { section_.Leave(); }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

   private:
    TmyCriticalSection& section_;
  };

 private:
  CRITICAL_SECTION section_{};
};

// Marlux 3. A flag that is up while a scope of it lies on the stack, for what the host is called in.
//
//   const FrameFlag::Scope tuning(isTuning_);
//   if (isTuning_.IsUp()) ...
//
// A host's own exception may pass through our frames, and its message loop goes on as if nothing had been: no
// destructor of ours runs then, and a plain flag or a count would be up for good. Scopes that lie below whoever asks
// are gone. The outermost one is remembered: what an exception leaves inside of it goes with it.
// One thread only. The flag must outlive its scopes. Neither two of them nor a scope and a question behind it share a
// function's frame, also not by inlining.
#pragma once

#include <cstdint>

class FrameFlag {
 public:
  class Scope {
   public:
    explicit Scope(FrameFlag& flag) noexcept : flag_(flag) {
      if (!flag.IsAbove(this)) flag.outermost_ = this;
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() {
      if (IsOutermost()) flag_.outermost_ = nullptr;
    }
    [[nodiscard]] bool IsOutermost() const noexcept { return flag_.outermost_ == this; }

   private:
    FrameFlag& flag_;
  };

  // Inlined, or it would ask for its own frame.
  [[nodiscard, gnu::always_inline]] bool IsUp() const noexcept {
    if (!IsAbove(__builtin_frame_address(0))) outermost_ = nullptr;
    return outermost_ != nullptr;
  }

 private:
  // The stack grows downwards.
  [[nodiscard]] bool IsAbove(const void* place) const noexcept {
    return reinterpret_cast<uintptr_t>(outermost_) > reinterpret_cast<uintptr_t>(place);
  }

  mutable const Scope* outermost_ = nullptr;  // compared, never followed: it may be gone
};

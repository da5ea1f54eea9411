// Marlux 3. A flag that is up while a scope of it lies on the stack, for what the host is called in.
//
//   const FrameFlag::Scope tuning(isTuning_);
//   if (isTuning_.IsUp()) ...
//
// A host's own exception may pass through our frames, and its message loop goes on as if nothing had been: no
// destructor of ours runs then, and a plain flag would be up for good. A scope that lies below whoever asks is gone.
// One thread only. The flag must outlive its scopes.
#pragma once

#include <cstdint>
#include <utility>

class FrameFlag {
 public:
  class Scope {
   public:
    explicit Scope(FrameFlag& flag) noexcept : flag_(flag), before_(std::exchange(flag.innermost_, this)) {}
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() { flag_.innermost_ = before_; }

   private:
    FrameFlag& flag_;
    const Scope* before_;
  };

  // Inlined, or it would ask for its own frame. The stack grows downwards.
  [[nodiscard, gnu::always_inline]] bool IsUp() const noexcept {
    const auto asker = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
    if (reinterpret_cast<uintptr_t>(innermost_) <= asker) innermost_ = nullptr;
    return innermost_ != nullptr;
  }

 private:
  mutable const Scope* innermost_ = nullptr;
};

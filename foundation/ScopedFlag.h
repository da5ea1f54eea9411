// Marlux 3. A flag that is up for as long as something runs, whichever way that ends; it is then as it was before, for
// one may lie within another.
//
//   const ScopedFlag choosing(choosing_);
//
// The flag must outlive it.
#pragma once

#include <utility>

class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) noexcept : flag_(flag), before_(std::exchange(flag, true)) {}
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

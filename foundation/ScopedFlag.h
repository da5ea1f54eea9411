// Marlux 3. A flag that is up for as long as something runs, whichever way that ends.
//
//   const ScopedFlag choosing(choosing_);
//
// The flag must outlive it.
#pragma once

class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) noexcept : flag_(flag) { flag_ = true; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = false; }

 private:
  bool& flag_;
};

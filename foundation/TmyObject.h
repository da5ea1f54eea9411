// Marlux 3. Root of every container, window and control.
#pragma once

#include "foundation/Compiler.h"

// Identity objects: they are never copied. `Tag` is free for the owner of an object.
class TmyObject {
 public:
  TmyObject() noexcept;
  TmyObject(const TmyObject&) = delete;
  TmyObject& operator=(const TmyObject&) = delete;

  virtual void SetTag(uint32_t tag) noexcept;
  virtual ~TmyObject();

  [[nodiscard]] uint32_t Tag() const noexcept { return tag_; }
  // The shared stamp as it stood when this object was made: debug listings tell generations of objects apart by it.
  [[nodiscard]] uint32_t Stamp() const noexcept { return stamp_; }
  static void SetSharedStamp(uint32_t stamp) noexcept;

 private:
  uint32_t tag_ = 0;
  uint32_t stamp_;
  // Kept zero: a freed or overwritten object shows in a debugger at once.
  uint32_t zero_ = 0;  // NOLINT(clang-diagnostic-unused-private-field)
};

static_assert(sizeof(void*) != 4 || sizeof(TmyObject) == 16);

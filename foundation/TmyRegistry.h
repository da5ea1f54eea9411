// Marlux 3. One open registry key. Every failure reads as "not there" and writes as "not done": settings are a comfort,
// never a reason to stop.
#pragma once

#include <windows.h>

#include "foundation/TmyObject.h"
#include "foundation/TmyString.h"

class TmyRegistry : public TmyObject {
 public:
  TmyRegistry() noexcept = default;
  ~TmyRegistry() override { Close(); }

  // Closes what was open before. `create` makes the key when it is absent.
  [[nodiscard]] bool Open(HKEY hive, const char* key, REGSAM access, bool create = false) noexcept;
  void Close() noexcept;
  [[nodiscard]] bool IsOpen() const noexcept { return key_ != nullptr; }

  // A read or the opening has failed although there may be something: what was read is not what somebody stored.
  [[nodiscard]] bool HasMissed() const noexcept { return hasMissed_; }

  [[nodiscard]] bool Exists(const char* name) const noexcept;
  [[nodiscard]] uint32_t ReadDword(const char* name, uint32_t otherwise) const noexcept;
  // Fills at most `size` bytes; a shorter value fills only its own length. Returns the bytes filled.
  uint32_t ReadBinary(const char* name, void* buffer, uint32_t size) const noexcept;
  [[nodiscard]] TmyString ReadString(const char* name, const TmyString& otherwise) const;  // ends at the first zero
  bool WriteDword(const char* name, uint32_t value) noexcept;
  bool WriteBinary(const char* name, const void* data, uint32_t size) noexcept;
  bool WriteString(const char* name, const TmyString& value) noexcept;
  bool DeleteValue(const char* name) noexcept;

 private:
  struct Value;
  Value ReadWhole(const char* name, DWORD wantedType) const noexcept;
  LSTATUS Told(LSTATUS status) const noexcept;

  HKEY key_ = nullptr;  // closed by Close
  mutable bool hasMissed_ = false;
};

#include "foundation/TmyRegistry.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace {

bool WriteValue(HKEY key, const char* name, DWORD type, const void* data, uint32_t size) noexcept {
  return key && RegSetValueExA(key, name, 0, type, static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
}

}  // namespace

// One value whole. Null when it is absent, of another type, empty or too large for memory.
struct TmyRegistry::Value {
  std::unique_ptr<uint8_t[]> bytes;
  DWORD size = 0;
};

LSTATUS TmyRegistry::Told(LSTATUS status) const noexcept {
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) hasMissed_ = true;
  return status;
}

TmyRegistry::Value TmyRegistry::ReadWhole(const char* name, DWORD wantedType) const noexcept {
  Value value;
  DWORD type = REG_NONE;
  DWORD size = 0;
  if (!key_ || Told(RegQueryValueExA(key_, name, nullptr, &type, nullptr, &size)) != ERROR_SUCCESS) return value;
  if (type != wantedType || size == 0) return value;
  value.bytes.reset(new (std::nothrow) uint8_t[size]);
  if (!value.bytes) {
    hasMissed_ = true;
    return value;
  }
  if (Told(RegQueryValueExA(key_, name, nullptr, &type, value.bytes.get(), &size)) != ERROR_SUCCESS ||
      type != wantedType) {
    value.bytes.reset();  // changed by somebody between the two calls
  } else {
    value.size = size;
  }
  return value;
}

bool TmyRegistry::Open(HKEY hive, const char* key, REGSAM access, bool create) noexcept {
  Close();
  const LSTATUS status = create ? RegCreateKeyExA(hive, key, 0, nullptr, 0, access, nullptr, &key_, nullptr)
                                : RegOpenKeyExA(hive, key, 0, access, &key_);
  if (Told(status) != ERROR_SUCCESS) key_ = nullptr;
  return IsOpen();
}

void TmyRegistry::Close() noexcept {
  if (key_) RegCloseKey(key_);
  key_ = nullptr;
}

bool TmyRegistry::Exists(const char* name) const noexcept {
  return key_ && Told(RegQueryValueExA(key_, name, nullptr, nullptr, nullptr, nullptr)) == ERROR_SUCCESS;
}

uint32_t TmyRegistry::ReadDword(const char* name, uint32_t otherwise) const noexcept {
  const Value value = ReadWhole(name, REG_DWORD);
  uint32_t number = otherwise;
  if (value.size == sizeof(number)) std::memcpy(&number, value.bytes.get(), sizeof(number));
  return number;
}

uint32_t TmyRegistry::ReadBinary(const char* name, void* buffer, uint32_t size) const noexcept {
  const Value value = ReadWhole(name, REG_BINARY);
  const uint32_t filled = std::min<uint32_t>(value.size, size);
  if (filled > 0) std::memcpy(buffer, value.bytes.get(), filled);
  return filled;
}

TmyString TmyRegistry::ReadString(const char* name, const TmyString& otherwise) const {
  const Value value = ReadWhole(name, REG_SZ);
  if (!value.bytes) return otherwise;
  const char* const text = reinterpret_cast<const char*>(value.bytes.get());
  const std::string_view whole(text, value.size);
  const std::string_view ended = whole.substr(0, whole.find('\0'));  // a value without a zero is possible, too
  TmyString read(ended);
  if (read.Length() != ended.size()) hasMissed_ = true;
  return read;
}

bool TmyRegistry::WriteDword(const char* name, uint32_t value) noexcept {
  return WriteValue(key_, name, REG_DWORD, &value, sizeof(value));
}

bool TmyRegistry::WriteBinary(const char* name, const void* data, uint32_t size) noexcept {
  return WriteValue(key_, name, REG_BINARY, data, size);
}

bool TmyRegistry::WriteString(const char* name, const TmyString& value) noexcept {
  return WriteValue(key_, name, REG_SZ, value.Chars(), value.Length() + 1);
}

bool TmyRegistry::DeleteValue(const char* name) noexcept {
  return key_ && RegDeleteValueA(key_, name) == ERROR_SUCCESS;
}

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "foundation/TmyString.h"

// TmyString's texts made from values, and values read from it.

namespace {

constexpr uint32_t kDecimalCapacity = 33;
constexpr uint32_t kHexCapacity = 18;

// The length without the terminating zero; negative when the format or an argument cannot be rendered. Windows' own
// formatter, because callers use its "%I64d"; the cross compiler's headers would substitute another.
int MeasureFormatted(const char* format, va_list arguments) noexcept {
#ifdef _WIN32
  return _vscprintf(format, arguments);
#else
  return vsnprintf(nullptr, 0, format, arguments);
#endif
}

int WriteFormatted(char* to, size_t size, const char* format, va_list arguments) noexcept {
#ifdef _WIN32
  return _vsnprintf(to, size, format, arguments);
#else
  return vsnprintf(to, size, format, arguments);
#endif
}

// False when nothing could be made of the format; `result` is then untouched.
bool FormatInto(TmyString& result, const char* format, va_list arguments) {
  va_list measured;
  va_copy(measured, arguments);
  const int length = MeasureFormatted(format, measured);
  va_end(measured);
  if (length < 0) return false;
  const auto count = static_cast<uint32_t>(length);
  TmyString text = TmyString::Repeat(' ', count);
  if (text.Length() != count) return false;
  WriteFormatted(text.WritableAt(0), size_t{count} + 1, format, arguments);
  result = std::move(text);
  return true;
}

// Texts of numbers have a fixed capacity that leaves room to append, unless a huge width asks for more.
TmyString WithCapacity(std::string_view text, uint64_t padding, char pad, uint32_t capacity) {
  const uint64_t length = text.size() + padding;
  if (length >= UINT32_MAX) return {};
  TmyString result = TmyString::WithRoom(std::max(static_cast<uint32_t>(length), capacity - 1));
  if (result.Capacity() <= length) return {};
  return result;
}

}  // namespace

#include "foundation/Trace.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

constexpr size_t kLongestLine = 1000;

bool on = false;

// The buffer and where its next line goes.
char* lines = nullptr;
size_t linesSize = 0;
size_t nextLine = 0;

void Keep(const char* text) noexcept {
  const size_t length = std::strlen(text);
  if (!lines || length + 2 > linesSize) return;  // with line feed and zero
  if (nextLine + length + 2 > linesSize) nextLine = 0;
  std::memcpy(lines + nextLine, text, length);
  nextLine += length;
  lines[nextLine++] = '\n';
  lines[nextLine] = 0;
}

}  // namespace

bool Trace::IsOn() noexcept {
  return on;
}

void Trace::SwitchOn(bool state) noexcept {
  on = state;
}

void Trace::SetBuffer(char* buffer, size_t size) noexcept {
  lines = buffer;
  linesSize = size;
  nextLine = 0;
}

void Trace::Line(const char* format, ...) noexcept {
  if (!on) return;
  char text[kLongestLine + 1];
  va_list arguments;  // NOLINT(*-init-variables): by va_start
  va_start(arguments, format);
  _vsnprintf(text, kLongestLine, format, arguments);
  va_end(arguments);
  text[kLongestLine] = 0;  // a text that was cut comes without its zero
  Keep(text);
  OutputDebugStringA(text);
}

void Trace::Scope::Enter() const noexcept {
  Line("%s IN", name_);
}

void Trace::Scope::Leave() const noexcept {
  // Tracing may have been switched off inside the block; the entry line still gets its counterpart.
  const bool before = on;
  on = true;
  Line("%s OUT", name_);
  on = before;
}

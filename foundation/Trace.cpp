#include "foundation/Trace.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>

namespace {

constexpr size_t kLongestLine = 1000;

bool on = false;

}  // namespace

bool Trace::IsOn() noexcept {
  return on;
}

void Trace::SwitchOn(bool state) noexcept {
  on = state;
}

void Trace::Line(const char* format, ...) noexcept {
  if (!on) return;
  char text[kLongestLine + 1];
  va_list arguments;
  va_start(arguments, format);
  _vsnprintf(text, kLongestLine, format, arguments);
  va_end(arguments);
  text[kLongestLine] = 0;  // a text that was cut comes without its zero
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

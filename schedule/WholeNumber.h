// Marlux 3. Whole numbers in texts of any quality.
#pragma once

#include <string_view>

#include "foundation/Compiler.h"

// The number at the start of the text, read as "%d" does: blanks, a sign, digits; 0 when there is none. One that does
// not fit becomes the nearest that does.
[[nodiscard]] constexpr int32_t WholeNumber(std::string_view text) noexcept {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r'))) ++i;
  const bool negative = i < text.size() && text[i] == '-';
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
  int64_t value = 0;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
    value = value * 10 + (text[i] - '0');
    if (value > INT32_MAX) return negative ? INT32_MIN : INT32_MAX;
  }
  return static_cast<int32_t>(negative ? -value : value);
}

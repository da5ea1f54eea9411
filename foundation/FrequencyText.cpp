#include "foundation/FrequencyText.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int kKiloDecimals = 3;
constexpr int kMegaDecimals = 6;
constexpr std::string_view kBlanks = " \t";

bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}
char Lower(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

std::string_view Trimmed(std::string_view text) noexcept {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

// unit := [ ( "k" | "m" ) [ "hz" ] ]      removed from the text; the result is its decimals down to one Hz
int TakeUnit(std::string_view& text) noexcept {
  std::string_view rest = text;
  const bool hertz = rest.size() >= 2 && Lower(rest[rest.size() - 2]) == 'h' && Lower(rest.back()) == 'z';
  if (hertz) rest.remove_suffix(2);
  const char prefix = rest.empty() ? '\0' : Lower(rest.back());
  if (prefix != 'k' && prefix != 'm') return kKiloDecimals;
  rest.remove_suffix(1);
  text = Trimmed(rest);
  return prefix == 'm' ? kMegaDecimals : kKiloDecimals;
}

bool AppendDigit(int64_t& value, int digit) noexcept {
  if (value > (std::numeric_limits<int64_t>::max() - digit) / 10) return false;
  value = value * 10 + digit;
  return true;
}

}  // namespace

// frequency := digits [ mark [ digits ] ] unit  |  mark digits unit ;  mark := "." | ","      (blanks around each)
std::optional<int64_t> ParseFrequency(std::string_view text) noexcept {
  text = Trimmed(text);
  int decimalsLeft = TakeUnit(text);
  int64_t hz = 0;
  bool hasDigit = false;
  bool hasMark = false;
  for (const char c : text) {
    if ((c == '.' || c == ',') && !hasMark) {
      hasMark = true;
    } else if (!IsDigit(c)) {
      return std::nullopt;
    } else {
      hasDigit = true;
      if (hasMark && decimalsLeft == 0) {
        if (c != '0') return std::nullopt;
        continue;
      }
      if (!AppendDigit(hz, c - '0')) return std::nullopt;
      if (hasMark) --decimalsLeft;
    }
  }
  if (!hasDigit) return std::nullopt;
  for (; decimalsLeft > 0; --decimalsLeft) {
    if (!AppendDigit(hz, 0)) return std::nullopt;
  }
  return hz;
}

// The unsigned form has a magnitude even for the lowest number.
TmyString FormatKhz(int64_t hz) {
  const auto bits = static_cast<uint64_t>(hz);
  return hz < 0 ? "-" + FormatUnsignedKhz(0 - bits) : FormatUnsignedKhz(bits);
}

TmyString FormatUnsignedKhz(uint64_t hz) {
  TmyString text = TmyString::FromDecimal(static_cast<int64_t>(hz / 1000));
  auto rest = static_cast<int64_t>(hz % 1000);
  if (rest == 0) return text;
  uint32_t decimals = kKiloDecimals;
  for (; rest % 10 == 0; rest /= 10) --decimals;
  text += '.';
  return text += TmyString::FromDecimal(rest, decimals);
}

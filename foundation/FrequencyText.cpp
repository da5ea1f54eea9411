#include "foundation/FrequencyText.h"

#include <algorithm>
#include <limits>
#include <string>

namespace {

constexpr int kKiloDecimals = 3;
constexpr int kMegaDecimals = 6;
constexpr size_t kGroup = 3;  // digits, as in "9 420"
constexpr std::string_view kBlanks = " \t";

bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}
char Lower(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool IsMark(char c) noexcept {
  return c == '.' || c == ',';
}
bool IsLetter(char c) noexcept {
  return Lower(c) >= 'a' && Lower(c) <= 'z';
}
std::string LowerOf(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), Lower);
  return lower;
}
// How many characters at the beginning are of a kind.
template <class Kind>
size_t CountOf(std::string_view text, Kind isOne) {
  return static_cast<size_t>(std::ranges::find_if_not(text, isOne) - text.begin());
}

std::string_view Trimmed(std::string_view text) noexcept {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

// unit := [ ( "k" | "m" ) [ "hz" ] | "hz" ]      removed from the text; the result is its decimals down to one Hz
int TakeUnit(std::string_view& text) noexcept {
  std::string_view rest = text;
  const bool hertz = rest.size() >= 2 && Lower(rest[rest.size() - 2]) == 'h' && Lower(rest.back()) == 'z';
  if (hertz) rest.remove_suffix(2);
  const char prefix = rest.empty() ? '\0' : Lower(rest.back());
  const bool hasPrefix = prefix == 'k' || prefix == 'm';
  if (!hertz && !hasPrefix) return kKiloDecimals;
  if (hasPrefix) rest.remove_suffix(1);
  text = Trimmed(rest);
  return prefix == 'm' ? kMegaDecimals : prefix == 'k' ? kKiloDecimals : 0;
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
    if (IsMark(c) && !hasMark) {
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

// A unit may stand behind a blank when it is more than a letter: "49 m" is a wavelength.
TmyString FindFrequency(std::string_view text) {
  const size_t first = text.find_first_of("0123456789");
  if (first == std::string_view::npos) return {};
  std::string_view rest = text.substr(first > 0 && IsMark(text[first - 1]) ? first - 1 : first);
  std::string number(rest.substr(0, CountOf(rest, [](char c) { return IsDigit(c) || IsMark(c); })));
  rest.remove_prefix(number.size());
  const auto hasGroup = [&] { return rest.starts_with(' ') && CountOf(rest.substr(1), IsDigit) == kGroup; };
  for (bool isGrouped = CountOf(number, IsDigit) == number.size() && number.size() <= kGroup;
       isGrouped && hasGroup();) {
    number += rest.substr(1, kGroup);
    rest.remove_prefix(1 + kGroup);
  }
  while (IsMark(number.back())) number.pop_back();
  const std::string_view word = Trimmed(rest);
  const std::string unit = LowerOf(word.substr(0, CountOf(word, IsLetter)));
  const bool isApart = word.data() != rest.data();
  const bool isUnit = unit == "khz" || unit == "mhz" || unit == "hz" || (!isApart && (unit == "k" || unit == "m"));
  if (isUnit) number += unit;
  return ParseFrequency(number) ? TmyString(number) : TmyString();
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

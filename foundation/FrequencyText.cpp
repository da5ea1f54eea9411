#include "foundation/FrequencyText.h"

#include <algorithm>
#include <limits>
#include <string>

namespace {

constexpr int kKiloDecimals = 3;
constexpr int kMegaDecimals = 6;
constexpr size_t kGroup = 3;                     // digits, as in "9 420"
constexpr std::string_view kBlanks = " \t\xA0";  // web pages have the last one between numbers and units

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
bool IsBlank(char c) noexcept {
  return kBlanks.find(c) != std::string_view::npos;
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

// Digits, further ones in groups of three, a mark and decimals; removed from the text.
std::string TakeNumber(std::string_view& text) {
  const auto take = [&](size_t count) {
    const std::string_view taken = text.substr(0, count);
    text.remove_prefix(count);
    return taken;
  };
  std::string number(take(CountOf(text, IsDigit)));
  const bool mayHaveGroups = !number.empty() && number.size() <= kGroup;
  while (mayHaveGroups && !text.empty() && IsBlank(text.front()) && CountOf(text.substr(1), IsDigit) == kGroup) {
    take(1);
    number += take(kGroup);
  }
  while (!text.empty() && IsMark(text.front())) number += take(1 + CountOf(text.substr(1), IsDigit));
  while (!number.empty() && IsMark(number.back())) number.pop_back();
  return number;
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
  const bool hasMark = first > 0 && IsMark(text[first - 1]) && (first == 1 || !IsLetter(text[first - 2]));
  std::string_view rest = text.substr(hasMark ? first - 1 : first);
  std::string number = TakeNumber(rest);
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

#include "toolkit/TimeText.h"

#include <algorithm>

namespace TimeText {

namespace {

constexpr int32_t kUnits[kFields] = {3600, 60, 1};
constexpr int kFieldWidth = 3;  // two digits and a colon

bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}

std::string_view Trimmed(std::string_view text) noexcept {
  constexpr std::string_view kBlanks = " \t\r\n";
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

// One or two digits, or nothing.
std::optional<int32_t> Number(std::string_view digits) noexcept {
  if (digits.empty() || digits.size() > 2) return std::nullopt;
  int32_t value = 0;
  for (const char c : digits) {
    if (!IsDigit(c)) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

// The three fields of the text, unset ones empty. False when there are more.
bool Split(std::string_view text, std::string_view (&fields)[kFields]) noexcept {
  if (text.find(':') == std::string_view::npos) {
    if (text.size() > 2 * kFields) return false;
    const size_t hours = text.size() <= 2 ? text.size() : 2 - text.size() % 2;  // "930" and "0930"
    fields[0] = text.substr(0, hours);
    text.remove_prefix(hours);
    fields[1] = text.substr(0, std::min<size_t>(2, text.size()));
    fields[2] = text.substr(fields[1].size());
    return true;
  }
  for (std::string_view& field : fields) {
    const size_t colon = text.find(':');
    field = text.substr(0, colon);
    if (field.empty()) return false;
    if (colon == std::string_view::npos) return true;
    text.remove_prefix(colon + 1);
  }
  return false;
}

int AfterColon(int caret) noexcept {
  return caret < kLength && caret % kFieldWidth == 2 ? caret + 1 : caret;
}

}  // namespace

// time := h [ ":" m [ ":" s ] ]  |  one to six digits: h, hh, hmm, hhmm, hmmss, hhmmss      (blanks around)
std::optional<int32_t> ParseTime(std::string_view text) noexcept {
  std::string_view fields[kFields];
  if (!Split(Trimmed(text), fields)) return std::nullopt;
  int32_t seconds = 0;
  for (int i = 0; i < kFields; ++i) {
    const std::optional<int32_t> number = i > 0 && fields[i].empty() ? 0 : Number(fields[i]);
    if (!number || (i > 0 && *number > 59)) return std::nullopt;
    seconds += *number * kUnits[i];
  }
  if (seconds > kLast) return std::nullopt;
  return seconds;
}

TmyString FormatTime(int32_t seconds) {
  return LineOf(seconds).text;
}

Line LineOf(int32_t seconds, int caret) noexcept {
  Line line = {"00:00:00", std::clamp(caret, 0, kLength)};
  seconds = std::clamp(seconds, 0, kLast);
  for (int i = 0; i < kFields; ++i) {
    const int32_t number = seconds / kUnits[i];
    line.text[i * kFieldWidth] = static_cast<char>('0' + number / 10);
    line.text[i * kFieldWidth + 1] = static_cast<char>('0' + number % 10);
    seconds %= kUnits[i];
  }
  return line;
}

int FieldAt(int caret) noexcept {
  return std::clamp(caret / kFieldWidth, 0, kFields - 1);
}

bool TypeDigit(Line& line, char digit) noexcept {
  Line next = line;
  next.caret = AfterColon(next.caret);
  if (!IsDigit(digit) || next.caret >= kLength) return false;
  const bool isHours = FieldAt(next.caret) == 0;
  char* field = next.text + FieldAt(next.caret) * kFieldWidth;
  const bool isTens = next.caret % kFieldWidth == 0;
  if (isTens && digit > (isHours ? '2' : '5')) {
    field[0] = '0';
    field[1] = digit;
    next.caret += 2;
  } else {
    field[isTens ? 0 : 1] = digit;
    if (isHours && isTens && digit == '2' && field[1] > '3') field[1] = '0';
    next.caret += 1;
  }
  if (!ParseTime(next.text)) return false;
  next.caret = AfterColon(next.caret);
  line = next;
  return true;
}

void TypeColon(Line& line) noexcept {
  if (line.caret >= kLength || line.caret % kFieldWidth == 0) return;
  char* field = line.text + FieldAt(line.caret) * kFieldWidth;
  if (line.caret % kFieldWidth == 1) {
    field[1] = field[0];
    field[0] = '0';
  }
  line.caret = std::min(kLength, (FieldAt(line.caret) + 1) * kFieldWidth);
}

void Clear(Line& line, int from, int to) noexcept {
  for (int i = std::max(from, 0); i < std::min(to, kLength); ++i) {
    if (IsDigit(line.text[i])) line.text[i] = '0';
  }
  line.caret = std::clamp(from, 0, kLength);
}

void ClearBack(Line& line) noexcept {
  int at = line.caret - 1;
  if (at >= 0 && at % kFieldWidth == 2) --at;
  if (at >= 0) Clear(line, at, at + 1);
}

void ClearAhead(Line& line) noexcept {
  const int at = AfterColon(line.caret);
  if (at >= kLength) return;
  Clear(line, at, at + 1);
  line.caret = AfterColon(at + 1);
}

int32_t Stepped(int32_t seconds, int field, int steps) noexcept {
  return ShiftTimeOfDay(seconds, kUnits[std::clamp(field, 0, kFields - 1)] * steps);
}

}  // namespace TimeText

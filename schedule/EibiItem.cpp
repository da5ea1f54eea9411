#include "schedule/EibiItem.h"

#include <emmintrin.h>

#include <cmath>
#include <cstdio>
#include <optional>

#include "foundation/TmyString.h"
#include "schedule/DayTime.h"

namespace {

// First character of each column; a column ends where the next one begins.
enum Column : size_t {
  kFrequencyColumn = 0,
  kTimeColumn = 14,
  kDaysColumn = 24,
  kItuColumn = 30,
  kStationColumn = 34,
  kLanguageColumn = 59,
  kTargetColumn = 63,
  kRemarksColumn = 75,
};
constexpr size_t kShortestLine = kTargetColumn;

// Part of a text; like the whole, it may be shorter than asked for.
std::string_view Cut(std::string_view text, size_t from, size_t to) noexcept {
  if (from >= text.size()) return {};
  return text.substr(from, to - from);
}

std::string_view Field(std::string_view line, size_t from, size_t to) noexcept {
  return TmyString::TrimView(Cut(line, from, to));
}

bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}

// digits [ "." digits ], up to seven significant: the digits as an integer and the power of ten are both exact in
// single precision, so that one division rounds once, as the C runtime's conversion does. Anything else is not ours.
std::optional<float> PlainNumber(std::string_view text) noexcept {
  static constexpr float kTens[] = {1.0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F};
  constexpr size_t kExactDigits = 7;
  if (text.empty() || text.size() > kExactDigits + 1) return std::nullopt;
  int32_t digits = 0;
  size_t count = 0;
  size_t pointAt = text.size();
  for (size_t i = 0; i < text.size(); ++i) {
    if (IsDigit(text[i])) {
      digits = digits * 10 + (text[i] - '0');
      ++count;
    } else if (text[i] == '.' && pointAt == text.size()) {
      pointAt = i;
    } else {
      return std::nullopt;
    }
  }
  if (count == 0 || count > kExactDigits) return std::nullopt;
  const size_t decimals = pointAt == text.size() ? 0 : text.size() - pointAt - 1;
  return static_cast<float>(digits) / kTens[decimals];
}

// Whatever else the C runtime takes for a number at the start of the text.
std::optional<float> RuntimeNumber(std::string_view text) noexcept {
  char bounded[kTimeColumn - kFrequencyColumn + 1];
  CopyText(bounded, text);
  float value = 0;
  if (sscanf(bounded, "%f", &value) != 1) return std::nullopt;
  return value;
}

// Hz for a kHz text; 0 for what is unreadable or does not fit into 32 bits.
int32_t HzFromText(std::string_view text) noexcept {
  std::optional<float> kiloHertz = PlainNumber(text);
  if (!kiloHertz) kiloHertz = RuntimeNumber(text);
  if (!kiloHertz) return 0;
  const double hertz = static_cast<double>(*kiloHertz) * 1000.0;  // exact: 24 bits by 10
  if (!(std::fabs(hertz) < 2147483647.0)) return 0;               // written so that NaN fails as well
  return _mm_cvtsd_si32(_mm_set_sd(hertz));  // to nearest, whatever a host has done to the x87 control word
}

// A number of up to two characters, read as "%d" does: blanks, a sign, digits; 0 when there is none.
int32_t ShortNumber(std::string_view text) noexcept {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r'))) ++i;
  const bool negative = i < text.size() && text[i] == '-';
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
  int32_t value = 0;
  for (; i < text.size() && IsDigit(text[i]); ++i) value = value * 10 + (text[i] - '0');
  return negative ? -value : value;
}

int32_t SecondsFromHhMm(std::string_view hhmm) noexcept {
  return (ShortNumber(Cut(hhmm, 0, 2)) * 60 + ShortNumber(Cut(hhmm, 2, 4))) * 60;
}

// time := HHMM "-" HHMM      (the separator may be any character; parts that are missing count as 0)
void SetTimes(EibiItem& item, std::string_view field) noexcept {
  if (field.empty()) {
    item.start = item.end = -1;
    CopyText(item.startText, "-");
    CopyText(item.endText, "-");
    return;
  }
  const std::string_view start = Cut(field, 0, 4);
  const std::string_view end = Cut(field, 5, field.size());
  item.start = SecondsFromHhMm(start);
  item.end = SecondsFromHhMm(end);
  CopyTimeText(item.startText, start);
  CopyTimeText(item.endText, end);
}

// True for exactly the texts that "%d" would write for a 32-bit integer: no plus sign, no leading zeros, in range.
bool IsPlainInteger(std::string_view text) noexcept {
  const bool negative = !text.empty() && text.front() == '-';
  const std::string_view digits = negative ? text.substr(1) : text;
  if (digits.empty() || digits.size() > 10) return false;
  if (digits.front() == '0') return text == "0";
  int64_t value = 0;
  for (const char c : digits) {
    if (!IsDigit(c)) return false;
    value = value * 10 + (c - '0');
  }
  return value <= (negative ? int64_t{2147483648} : int64_t{2147483647});
}

// Collects the flags and the display text of a days field.
class DayCollector {
 public:
  explicit DayCollector(EibiItem& item) noexcept : item_(item) {}

  void Append(std::string_view text) noexcept {
    for (size_t i = 0; i < text.size() && length_ < sizeof(item_.daysText) - 1; ++i)
      item_.daysText[length_++] = text[i];
  }

  void SetFlags(int32_t first, int32_t last) noexcept {
    for (int32_t day = first; day <= last; ++day) item_.dayFlags[day] = 1;
  }

  void AddDay(int32_t day) noexcept {
    if (day < 0) return;
    SetFlags(day, day);
    if (length_ > 0) Append(", ");
    Append(kShortDayNames[static_cast<size_t>(day)]);
  }

  void AddDigits(std::string_view digits) noexcept {
    for (const char c : digits) {
      if (c >= '1' && c <= '7') AddDay(c - '1');
    }
  }

  void AddRange(int32_t first, int32_t last) noexcept {
    if (first < 0) return;
    AddDay(first);
    if (last < 0) return;
    Append("-");
    Append(kShortDayNames[static_cast<size_t>(last)]);
    if (first < last) {
      SetFlags(first, last);
    } else {
      SetFlags(0, last);
      SetFlags(first + 1, kDaysOfWeek - 1);
    }
  }

  void AddFullName(int32_t day) noexcept {
    if (day < 0) return;
    SetFlags(day, day);
    Append(kFullDayNames[static_cast<size_t>(day)]);
  }

 private:
  EibiItem& item_;
  size_t length_ = 0;
};

uint8_t MaskFromFlags(const uint8_t (&flags)[kDaysOfWeek]) noexcept {
  uint32_t mask = 0;
  for (uint32_t day = 0; day < kDaysOfWeek; ++day) {
    if (flags[day]) mask |= DayBit(day);
  }
  return static_cast<uint8_t>(mask);
}

// days := digits | code code | code "," code | code "-" code | code | free text
void CollectDays(DayCollector& days, std::string_view field) noexcept {
  const int32_t first = DayIndex(field.substr(0, 2));
  if (IsPlainInteger(field)) {
    days.AddDigits(field);
  } else if (field.size() == 4 && field.find('.') == std::string_view::npos) {
    days.AddDay(first);
    days.AddDay(DayIndex(field.substr(2)));
  } else if (field.size() == 5 && field[2] == ',') {
    days.AddDay(first);
    days.AddDay(DayIndex(field.substr(3)));
  } else if (field.size() == 5 && field[2] == '-') {
    days.AddRange(first, DayIndex(field.substr(3)));
  } else if (field.size() == 2) {
    days.AddFullName(first);
  } else {
    days.Append(field);
  }
}

}  // namespace

void EibiItem::SetDays(std::string_view field) noexcept {
  CopyText(rawDays, field);
  if (field.empty()) {
    CopyText(daysText, "All days");
    for (uint8_t& flag : dayFlags) flag = 1;
    dayMask = kAllDaysMask;
    return;
  }
  CopyText(daysText, "");
  for (uint8_t& flag : dayFlags) flag = 0;
  DayCollector days(*this);
  CollectDays(days, field);
  dayMask = MaskFromFlags(dayFlags);
  if (dayMask == kWeekendMask || dayMask == kWorkdaysMask) CopyText(daysText, DayMaskText(dayMask));
}

bool EibiItem::Parse(std::string_view line) noexcept {
  valid = 0;
  if (line.size() < kShortestLine) return false;
  const std::string_view written = Field(line, kFrequencyColumn, kTimeColumn);
  frequency = HzFromText(written);
  if (frequency == 0) return false;
  CopyText(frequencyText, written);
  SetTimes(*this, Field(line, kTimeColumn, kDaysColumn));
  SetDays(Field(line, kDaysColumn, kItuColumn));
  CopyText(itu, Field(line, kItuColumn, kStationColumn));
  CopyText(station, Field(line, kStationColumn, kLanguageColumn));
  CopyText(language, Field(line, kLanguageColumn, kTargetColumn));
  CopyText(target, Field(line, kTargetColumn, kRemarksColumn));
  CopyText(remarks, Field(line, kRemarksColumn, line.size()));
  valid = 1;
  return true;
}

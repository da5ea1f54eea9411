#include "schedule/EibiItem.h"

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>
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

// One line of at least 63 characters, with a bit for each of these that trimming would keep. Most of a line is padding:
// with the bits a column is trimmed without a loop over it. The bits say what TmyString::TrimView says.
class Line {
 public:
  explicit Line(std::string_view text) noexcept
      : text_(text),
        kept_(KeptOf16(text, 0) | KeptOf16(text, 16) << 16 | KeptOf16(text, 32) << 32 |
              KeptOf16(text, kShortestLine - 16) >> 1 << 48) {}  // the last 16 overlap by one

  template <size_t kFrom, size_t kTo>
  std::string_view Column() const noexcept {
    static_assert(kTo <= kShortestLine && kTo - kFrom < 32);
    return Kept(kFrom, static_cast<uint32_t>(kept_ >> kFrom) & ((1U << (kTo - kFrom)) - 1));
  }

  // The columns beyond the shortest line may be cut off or absent.
  std::string_view Target() const noexcept {
    if (text_.size() < kRemarksColumn) return TmyString::TrimView(text_.substr(kTargetColumn));
    constexpr size_t kWidth = kRemarksColumn - kTargetColumn;
    return Kept(kTargetColumn, static_cast<uint32_t>(KeptOf16(text_, kRemarksColumn - 16) >> (16 - kWidth)));
  }

  std::string_view Remarks() const noexcept { return TmyString::TrimView(Cut(text_, kRemarksColumn, text_.size())); }

 private:
  std::string_view Kept(size_t from, uint32_t bits) const noexcept {
    if (bits == 0) return {};
    const auto first = static_cast<size_t>(std::countr_zero(bits));
    return text_.substr(from + first, static_cast<size_t>(std::bit_width(bits)) - first);
  }

  static uint64_t KeptOf16(std::string_view text, size_t from) noexcept {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + from));
    return static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpgt_epi8(bytes, _mm_set1_epi8(' '))));
  }

  std::string_view text_;
  uint64_t kept_;
};

// CopyText without the zeros behind the terminator and without calls into the runtime: the texts of a line are short,
// and there are nine of them.
template <size_t kSize>
void PutText(char (&field)[kSize], std::string_view text) noexcept {
  const size_t count = std::min(text.size(), kSize - 1);
  const char* from = text.data();
  if (count >= 8) {
    // Whole steps, then the last eight once more: nothing outside the text is read.
    for (size_t i = 0; i + 8 <= count; i += 8) memcpy(field + i, from + i, 8);
    memcpy(field + count - 8, from + count - 8, 8);
  } else if (count >= 4) {
    memcpy(field, from, 4);
    memcpy(field + count - 4, from + count - 4, 4);
  } else if (count > 0) {
    field[0] = from[0];
    field[count / 2] = from[count / 2];
    field[count - 1] = from[count - 1];
  }
  field[count] = 0;
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
  return _mm_cvtsd_si32(_mm_set_sd(hertz));                       // as the thread rounds: see LoadEibi
}

// time := HHMM "-" HHMM      (the separator may be any character; parts that are missing count as 0)
void SetTimes(EibiItem& item, std::string_view field) noexcept {
  if (field.empty()) {
    item.start = item.end = -1;
    PutText(item.startText, "-");
    PutText(item.endText, "-");
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
    item_.daysText[length_] = 0;
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
  PutText(rawDays, field);
  if (field.empty()) {
    PutText(daysText, "All days");
    for (uint8_t& flag : dayFlags) flag = 1;
    dayMask = kAllDaysMask;
    return;
  }
  PutText(daysText, "");
  for (uint8_t& flag : dayFlags) flag = 0;
  DayCollector days(*this);
  CollectDays(days, field);
  dayMask = MaskFromFlags(dayFlags);
  if (dayMask == kWeekendMask || dayMask == kWorkdaysMask) PutText(daysText, DayMaskText(dayMask));
}

bool EibiItem::Parse(std::string_view text) noexcept {
  valid = 0;
  if (text.size() < kShortestLine) return false;
  const Line line(text);
  const std::string_view written = line.Column<kFrequencyColumn, kTimeColumn>();
  frequency = HzFromText(written);
  if (frequency == 0) return false;
  PutText(frequencyText, written);
  SetTimes(*this, line.Column<kTimeColumn, kDaysColumn>());
  SetDays(line.Column<kDaysColumn, kItuColumn>());
  PutText(itu, line.Column<kItuColumn, kStationColumn>());
  PutText(station, line.Column<kStationColumn, kLanguageColumn>());
  PutText(language, line.Column<kLanguageColumn, kTargetColumn>());
  PutText(target, line.Target());
  PutText(remarks, line.Remarks());
  valid = 1;
  return true;
}

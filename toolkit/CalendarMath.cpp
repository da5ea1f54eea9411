#include "toolkit/CalendarMath.h"

#include <algorithm>

namespace CalendarMath {

namespace {

using std::chrono::days;
using std::chrono::months;
using std::chrono::sys_days;

Date Clamped(Date date) noexcept {
  return std::clamp(date, kFirst, kLast);
}

Date WithoutMissingDay(Date date) noexcept {
  return date.ok() ? date : Date(date.year() / date.month() / std::chrono::last);
}

Part PartOf(char letter, size_t length) noexcept {
  if (letter == 'd') return length > 2 ? Part::kWeekday : Part::kDay;
  if (letter == 'M') return Part::kMonth;
  return letter == 'y' ? Part::kYear : Part::kText;
}

void AddText(std::vector<PicturePart>& parts, char c) {
  if (parts.empty() || parts.back().part != Part::kText) parts.push_back({Part::kText, ""});
  parts.back().picture += c;
}

}  // namespace

Date DateOf(const SYSTEMTIME& time) noexcept {
  const std::chrono::year year{std::clamp<int>(time.wYear, 0, 10000)};
  const std::chrono::month month{std::clamp<unsigned>(time.wMonth, 1, 12)};
  const std::chrono::day day{std::clamp<unsigned>(time.wDay, 1, 31)};
  return Clamped(WithoutMissingDay(year / month / day));
}

void SetDate(SYSTEMTIME& time, Date date) noexcept {
  time.wYear = static_cast<WORD>(static_cast<int>(date.year()));
  time.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
  time.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
  time.wDayOfWeek = static_cast<WORD>(std::chrono::weekday(sys_days(date)).c_encoding());
}

Date PlusDays(Date date, int count) noexcept {
  return Clamped(sys_days(date) + days(count));
}
Date PlusMonths(Date date, int count) noexcept {
  return Clamped(WithoutMissingDay(date + months(count)));
}
Date FirstOfMonth(Date date) noexcept {
  return date.year() / date.month() / 1;
}
Date LastOfMonth(Date date) noexcept {
  return date.year() / date.month() / std::chrono::last;
}

std::optional<Date> DayInCell(Date date, int cell, unsigned firstWeekday) noexcept {
  const sys_days first = FirstOfMonth(date);
  const days before = std::chrono::weekday(first) - std::chrono::weekday(firstWeekday);
  const Date day = first - before + days(cell);
  if (day < kFirst || day > kLast) return std::nullopt;
  return day;
}

// picture := { letter { the same letter } | "'" text "'" | any other character }
std::vector<PicturePart> SplitPicture(std::string_view picture) {
  std::vector<PicturePart> parts;
  bool quoted = false;
  for (size_t at = 0; at < picture.size();) {
    const char c = picture[at];
    const size_t end = std::min(picture.find_first_not_of(c, at), picture.size());
    const Part part = quoted ? Part::kText : PartOf(c, end - at);
    if (c == '\'') {
      quoted = !quoted;
    } else if (part == Part::kText) {
      AddText(parts, c);
    } else {
      parts.push_back({part, std::string(picture.substr(at, end - at))});
      at = end;
      continue;
    }
    ++at;
  }
  return parts;
}

Date Stepped(Date date, Part part, int direction) noexcept {
  switch (part) {
    case Part::kDay:
      return PlusDays(date, direction);
    case Part::kMonth:
      return PlusMonths(date, direction);
    case Part::kYear:
      return PlusMonths(date, 12 * direction);
    default:
      return date;
  }
}

std::optional<Date> WithPart(Date date, Part part, int value) noexcept {
  if (value < 1) return std::nullopt;
  Date changed = date;
  if (part == Part::kDay) changed = date.year() / date.month() / std::chrono::day{static_cast<unsigned>(value)};
  if (part == Part::kDay && value > 31) return std::nullopt;
  if (part == Part::kMonth && value > 12) return std::nullopt;
  if (part == Part::kMonth) changed = date.year() / std::chrono::month{static_cast<unsigned>(value)} / date.day();
  if (part == Part::kYear && (value < 1601 || value > 9999)) return std::nullopt;
  if (part == Part::kYear) changed = std::chrono::year{value} / date.month() / date.day();
  return WithoutMissingDay(changed);
}

}  // namespace CalendarMath

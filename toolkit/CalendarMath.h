// Marlux 3. Days, months and date pictures: what a date picker counts with. Functions of their arguments.
//
//   PlusMonths(2026y / 1 / 31, 1)        gives 2026y / 2 / 28
//   SplitPicture("dd.MM.yyyy")           gives day, ".", month, ".", year
#pragma once

#include <windows.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CalendarMath {

using Date = std::chrono::year_month_day;

// What the system can both show and store.
inline constexpr Date kFirst{std::chrono::year{1601}, std::chrono::month{1}, std::chrono::day{1}};
inline constexpr Date kLast{std::chrono::year{9999}, std::chrono::month{12}, std::chrono::day{31}};
inline constexpr int kCells = 42;  // of a month's page: six weeks

// The nearest date from kFirst to kLast; of fields that make no date, the nearest that do.
[[nodiscard]] Date DateOf(const SYSTEMTIME& time) noexcept;
// Day of the week included; the time of day stays.
void SetDate(SYSTEMTIME& time, Date date) noexcept;

// Not beyond kFirst and kLast. A day that the month does not have becomes its last.
[[nodiscard]] Date PlusDays(Date date, int count) noexcept;
[[nodiscard]] Date PlusMonths(Date date, int count) noexcept;
[[nodiscard]] Date FirstOfMonth(Date date) noexcept;
[[nodiscard]] Date LastOfMonth(Date date) noexcept;
// The day in a cell of the page of a date's month, whose weeks begin with `firstWeekday` (0 is Sunday); nothing beyond
// kFirst and kLast. The month's first day is in the first week.
[[nodiscard]] std::optional<Date> DayInCell(Date date, int cell, unsigned firstWeekday) noexcept;

enum class Part { kText, kWeekday, kDay, kMonth, kYear };
struct PicturePart {
  Part part;
  std::string picture;  // the text itself for kText
  bool operator==(const PicturePart&) const = default;
};
// A picture of the system ("M/d/yyyy", "dd' de 'MMMM"); text between apostrophes stands for itself.
[[nodiscard]] std::vector<PicturePart> SplitPicture(std::string_view picture);
[[nodiscard]] constexpr bool IsEditable(Part part) noexcept {
  return part == Part::kDay || part == Part::kMonth || part == Part::kYear;
}

// One unit of an editable part more or less, carrying into the others.
[[nodiscard]] Date Stepped(Date date, Part part, int direction) noexcept;
// Nothing when the part can be that in no month and no year.
[[nodiscard]] std::optional<Date> WithPart(Date date, Part part, int value) noexcept;

}  // namespace CalendarMath

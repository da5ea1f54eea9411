// Marlux 3. Names of the days of the week, the texts of day masks and the HH:MM form of times.
//
// Two orders meet here. Day indexes count from Monday = 0 to Sunday = 6; the bits of a day mask count from Sunday = 0
// to Saturday = 6, as the system clock counts days. DayBit goes from the first to the second.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "schedule/WholeNumber.h"

inline constexpr uint32_t kDaysOfWeek = 7;
inline constexpr uint8_t kAllDaysMask = 0x7F;
inline constexpr uint8_t kWorkdaysMask = 0x3E;
inline constexpr uint8_t kWeekendMask = 0x41;

// By day index.
inline constexpr std::array<std::string_view, kDaysOfWeek> kDayCodes = {"Mo", "Tu", "We", "Th", "Fr", "Sa", "Su"};
inline constexpr std::array<std::string_view, kDaysOfWeek> kShortDayNames = {"Mon", "Tue", "Wed", "Thu",
                                                                             "Fri", "Sat", "Sun"};
inline constexpr std::array<std::string_view, kDaysOfWeek> kFullDayNames = {
    "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};

// The index of a two-letter code, or -1. Case counts.
[[nodiscard]] int32_t DayIndex(std::string_view code) noexcept;

// The mask with the one bit of a day index below 7.
[[nodiscard]] constexpr uint8_t DayBit(uint32_t dayIndex) noexcept {
  return static_cast<uint8_t>(1U << ((dayIndex + 1) % kDaysOfWeek));
}

// "All days", "Workdays", "Weekend", the full name of a single day, else short names from Monday on: "Mon, Wed, Sun".
// "" for no day. Bits above the seventh do not count. The text is static and zero-terminated.
[[nodiscard]] const char* DayMaskText(uint32_t mask) noexcept;

// Seconds for the characters HHMM; "2400" gives 86400. Parts that are missing or no numbers count as 0, what follows
// the fourth character is ignored.
[[nodiscard]] constexpr int32_t SecondsFromHhMm(std::string_view hhmm) noexcept {
  const auto isDigit = [hhmm](size_t i) { return hhmm[i] >= '0' && hhmm[i] <= '9'; };
  if (hhmm.size() >= 4 && isDigit(0) && isDigit(1) && isDigit(2) && isDigit(3)) {  // nearly always
    return ((hhmm[0] * 10 + hhmm[1] - '0' * 11) * 60 + hhmm[2] * 10 + hhmm[3] - '0' * 11) * 60;
  }
  const int32_t minutes = hhmm.size() > 2 ? WholeNumber(hhmm.substr(2, 2)) : 0;
  return (WholeNumber(hhmm.substr(0, 2)) * 60 + minutes) * 60;
}

// Writes HH:MM for the characters HHMM. Shorter input leaves its part out ("22" gives "22:"), what follows the fourth
// character is ignored.
template <size_t kSize>
void CopyTimeText(char (&field)[kSize], std::string_view hhmm) noexcept {
  static_assert(kSize >= 6);
  size_t length = 0;
  for (size_t i = 0; i < 4; ++i) {
    if (i == 2) field[length++] = ':';
    if (i < hhmm.size()) field[length++] = hhmm[i];
  }
  field[length] = 0;
}

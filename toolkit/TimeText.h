// Marlux 3. Times of day as people write them, and typing into the fixed text "HH:MM:SS". Functions of their arguments.
//
//   ParseTime("2330")    gives 84600
//   FormatTime(84600)    gives "23:30:00"
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "foundation/TmyString.h"

namespace TimeText {

constexpr int32_t kDay = 86400;      // seconds
constexpr int32_t kLast = kDay - 1;  // of the day
constexpr int kLength = 8;           // of "HH:MM:SS"
constexpr int kFields = 3;           // hours, minutes, seconds

// Seconds of the day, 0 to `maximum` (kLast, or kDay where "24:00" is a time). Nothing for any other text.
[[nodiscard]] std::optional<int32_t> ParseTime(std::string_view text, int32_t maximum = kLast) noexcept;
[[nodiscard]] TmyString FormatTime(int32_t seconds);  // 0 to kDay

// Where the text is edited: always a whole "HH:MM:SS" that ParseTime accepts, and a caret in front of one of its
// characters or at its end.
struct Line {
  char text[kLength + 1];
  int caret;
};
[[nodiscard]] Line LineOf(int32_t seconds, int caret = 0) noexcept;  // seconds of 0 to kDay

[[nodiscard]] int FieldAt(int caret) noexcept;  // 0 hours to 2 seconds
// Overwrites the digit at the caret. A digit that cannot begin a field fills it ("9" gives "09"). False, with nothing
// changed, when the digit makes no time or the caret is at the end.
bool TypeDigit(Line& line, char digit, int32_t maximum) noexcept;
void TypeColon(Line& line) noexcept;                // ends a field of one typed digit: "1" gives "01"
void Clear(Line& line, int from, int to) noexcept;  // digits in [from, to) become 0; the caret goes to `from`
void ClearBack(Line& line) noexcept;                // the digit before the caret
void ClearAhead(Line& line) noexcept;               // the digit at the caret
// One unit of a field more or less, carrying into the others and around midnight.
[[nodiscard]] int32_t Stepped(int32_t seconds, int field, int direction, int32_t maximum) noexcept;

}  // namespace TimeText

// Marlux 3. Times of day as people write them, and typing into the fixed text "HH:MM:SS". Functions of their arguments.
//
//   ParseTime("2330")    gives 84600
//   FormatTime(84600)    gives "23:30:00"
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "foundation/Clock.h"
#include "foundation/TmyString.h"

namespace TimeText {

constexpr int32_t kLast = kSecondsPerDay - 1;
constexpr int kLength = 8;  // of "HH:MM:SS"
constexpr int kFields = 3;  // hours, minutes, seconds

// Seconds of the day, 0 to kLast. Nothing for any other text: "24:00" is none.
[[nodiscard]] std::optional<int32_t> ParseTime(std::string_view text) noexcept;
[[nodiscard]] TmyString FormatTime(int32_t seconds);  // 0 to kLast

// Where the text is edited: always a whole "HH:MM:SS" that ParseTime accepts, and a caret in front of one of its
// characters or at its end.
struct Line {
  char text[kLength + 1];
  int caret;
};
[[nodiscard]] Line LineOf(int32_t seconds, int caret = 0) noexcept;  // seconds of 0 to kLast

[[nodiscard]] int FieldAt(int caret) noexcept;  // 0 hours to 2 seconds
// Overwrites the digit at the caret. A digit that cannot begin a field fills it ("9" gives "09"). False, with nothing
// changed, when the digit makes no time or the caret is at the end.
bool TypeDigit(Line& line, char digit) noexcept;
void TypeColon(Line& line) noexcept;                // ends a field of one typed digit: "1" gives "01"
void Clear(Line& line, int from, int to) noexcept;  // digits in [from, to) become 0; the caret goes to `from`
void ClearBack(Line& line) noexcept;                // the digit before the caret
void ClearAhead(Line& line) noexcept;               // the digit at the caret
// So many units of a field more, or less when negative, carrying into the others and around midnight.
[[nodiscard]] int32_t Stepped(int32_t seconds, int field, int steps) noexcept;

}  // namespace TimeText

#include "toolkit/TimeText.h"

#include <gtest/gtest.h>

#include <string>

using namespace TimeText;

namespace {

TEST(TimeText, ReadsWhatPeopleWrite) {
  constexpr int32_t kNone = -1;
  const struct {
    const char* text;
    int32_t seconds;
  } cases[] = {
      {"23:30:15", 84615},   {"23:30", 84600},    {"2330", 84600},    {"233015", 84615}, {"930", 34200},
      {"93015", 34215},      {"9", 32400},        {"21", 75600},      {"9:5", 32700},    {"0:0:7", 7},
      {" 23:30\r\n", 84600}, {"23:59:59", 86399}, {"", kNone},        {"24:00", kNone},  {"2400", kNone},
      {"23:60", kNone},      {"12:30:60", kNone}, {"1:2:3:4", kNone}, {"23:", kNone},    {":30", kNone},
      {"12:30:", kNone},     {"1234567", kNone},  {"12.30", kNone},   {"-1:00", kNone},  {"123:00", kNone},
      {"1 2:30", kNone},     {"ab", kNone},
  };
  for (const auto& c : cases) EXPECT_EQ(ParseTime(c.text).value_or(kNone), c.seconds) << c.text;
  EXPECT_EQ(ParseTime("24:00", kDay), kDay);
  EXPECT_EQ(ParseTime("24:00:01", kDay), std::nullopt);
  EXPECT_STREQ(FormatTime(3661).Chars(), "01:01:01");
}

// "<" and ">" stand for Backspace and Delete. The caret is shown as "|".
std::string Typed(int32_t start, int caret, const char* keys, int32_t maximum) {
  Line line = LineOf(start, caret);
  for (const char* key = keys; *key; ++key) {
    if (*key == '<') {
      ClearBack(line);
    } else if (*key == '>') {
      ClearAhead(line);
    } else if (*key == ':') {
      TypeColon(line);
    } else {
      TypeDigit(line, *key, maximum);
    }
    EXPECT_TRUE(ParseTime(line.text, maximum)) << line.text;
  }
  std::string shown;
  for (int i = 0; i <= kLength; ++i) {
    if (i == line.caret) shown += '|';
    if (i < kLength) shown += line.text[i];
  }
  return shown;
}

TEST(TimeText, TypingKeepsTheMask) {
  constexpr int32_t kAfternoon = 15 * 3600 + 45 * 60 + 59;
  const struct {
    int32_t start;
    int caret;
    const char* keys;
    int32_t maximum;
    const char* after;
  } cases[] = {
      {kAfternoon, 0, "2", kLast, "2|0:45:59"},  // 25 is no hour
      {kAfternoon, 0, "0", kLast, "0|5:45:59"},   {kAfternoon, 0, "2330159", kLast, "23:30:15|"},
      {kAfternoon, 0, "93", kLast, "09:3|5:59"},  // a digit that cannot begin the hours fills them
      {kAfternoon, 3, "6", kLast, "15:06:|59"},   {kAfternoon, 2, "1", kLast, "15:1|5:59"},  // from before a colon
      {kAfternoon, 0, "24", kLast, "2|0:45:59"},                                             // 24 is no hour either
      {kAfternoon, 0, "24", kDay, "24:|00:00"},   {kDay, 3, "5", kDay, "24:|00:00"},
      {kDay, 0, "1", kDay, "1|4:00:00"},          {kAfternoon, 0, "1:30", kLast, "01:30:|59"},
      {kAfternoon, 0, ":", kLast, "|15:45:59"},   {kAfternoon, 8, ":", kLast, "15:45:59|"},
      {kAfternoon, 8, "<<<", kLast, "15:4|0:00"}, {kAfternoon, 0, "<", kLast, "|15:45:59"},
      {kAfternoon, 1, ">>", kLast, "10:0|5:59"},  {kAfternoon, 8, ">", kLast, "15:45:59|"},
  };
  for (const auto& c : cases) EXPECT_EQ(Typed(c.start, c.caret, c.keys, c.maximum), c.after) << c.keys;
}

TEST(TimeText, SteppingCarriesAroundMidnight) {
  const struct {
    const char* start;
    int field, direction;
    int32_t maximum;
    const char* after;
  } cases[] = {{"15:45:59", 0, 1, kLast, "16:45:59"},  {"15:45:59", 1, -1, kLast, "15:44:59"},
               {"15:45:59", 2, 1, kLast, "15:46:00"},  {"23:59:59", 2, 1, kLast, "00:00:00"},
               {"00:30:00", 0, -1, kLast, "23:30:00"}, {"23:00:00", 0, 1, kDay, "24:00:00"},
               {"24:00:00", 0, 1, kDay, "01:00:00"},   {"24:00:00", 2, -1, kDay, "23:59:59"}};
  for (const auto& c : cases) {
    EXPECT_STREQ(FormatTime(Stepped(*ParseTime(c.start, kDay), c.field, c.direction, c.maximum)).Chars(), c.after);
  }
}

}  // namespace

#include "toolkit/TimeText.h"

#include "tests/support/Test.h"

using namespace TimeText;

namespace {

TEST(TimeText, ReadsWhatPeopleWrite) {
  const std::pair<const char*, const char*> cases[] = {
      {"23:30", "23:30:00"},  {"2330", "23:30:00"},       {"233015", "23:30:15"},   {"930", "09:30:00"},
      {"93015", "09:30:15"},  {"9", "09:00:00"},          {"21", "21:00:00"},       {"9:5", "09:05:00"},
      {"0:0:7", "00:00:07"},  {" 23:30\r\n", "23:30:00"}, {"23:59:59", "23:59:59"}, {"24:00", "24:00:00"},
      {"12:59:1", "12:59:01"}};
  for (const auto& [text, time] : cases) EXPECT_EQ(FormatTime(ParseTime(text, kDay).value_or(1)), time) << text;
  for (const char* text : {"", "24:00", "2400", "23:60", "12:30:60", "1:2:3:4", "23:", ":30", "12:30:", "1234567",
                           "12.30", "-1:00", "123:00", "1 2:30", "ab"}) {
    EXPECT_EQ(ParseTime(text), std::nullopt) << text;
  }
  EXPECT_EQ(ParseTime("24:00:01", kDay), std::nullopt);
  EXPECT_EQ(ParseTime("1:1:1"), 3661);
}

TEST(TimeText, SteppingCarriesAroundMidnight) {
  const std::tuple<const char*, int, int, int32_t, const char*> cases[] = {
      {"15:45:59", 0, 1, kLast, "16:45:59"},  {"15:45:59", 1, -1, kLast, "15:44:59"},
      {"15:45:59", 2, 1, kLast, "15:46:00"},  {"23:59:59", 2, 1, kLast, "00:00:00"},
      {"00:30:00", 0, -1, kLast, "23:30:00"}, {"23:00:00", 0, 1, kDay, "24:00:00"},
      {"24:00:00", 0, 1, kDay, "01:00:00"},   {"24:00:00", 2, -1, kDay, "23:59:59"}};
  for (const auto& [start, field, direction, maximum, after] : cases) {
    EXPECT_STREQ(FormatTime(Stepped(*ParseTime(start, kDay), field, direction, maximum)).Chars(), after);
  }
}

}  // namespace

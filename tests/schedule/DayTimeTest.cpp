#include "schedule/DayTime.h"

#include <gtest/gtest.h>

#include <string>

TEST(DayTime, FindsCodesExactly) {
  for (uint32_t day = 0; day < kDaysOfWeek; ++day) EXPECT_EQ(DayIndex(kDayCodes[day]), static_cast<int32_t>(day));
  for (const char* code : {"", "M", "mo", "MO", "Mon", "Xx", "M\xF6"}) EXPECT_EQ(DayIndex(code), -1) << code;
}

TEST(DayTime, NamesDayMasks) {
  const struct {
    uint32_t mask;
    const char* text;
  } kCases[] = {
      {0, ""},
      {127, "All days"},
      {62, "Workdays"},
      {65, "Weekend"},
      {1, "Sunday"},
      {2, "Monday"},
      {64, "Saturday"},
      {3, "Mon, Sun"},  // Monday first, though Sunday is the lowest bit
      {126, "Mon, Tue, Wed, Thu, Fri, Sat"},
      {63, "Mon, Tue, Wed, Thu, Fri, Sun"},
      {0x2A, "Mon, Wed, Fri"},
      {128 + 65, "Weekend"},
  };
  for (const auto& each : kCases) EXPECT_STREQ(DayMaskText(each.mask), each.text) << each.mask;
}

TEST(DayTime, PutsTheColonAfterTheHours) {
  const struct {
    const char* digits;
    const char* text;
  } kCases[] = {{"0930", "09:30"}, {"2400", "24:00"}, {"22", "22:"},      {"223", "22:3"},
                {"", ":"},         {"5", "5:"},       {"123456", "12:34"}};
  for (const auto& each : kCases) {
    char text[6];
    CopyTimeText(text, each.digits);
    EXPECT_STREQ(text, each.text);
  }
}

#include "schedule/DayTime.h"

#include "tests/support/Test.h"

TEST(DayTime, FindsCodesExactly) {
  for (uint32_t day = 0; day < kDaysOfWeek; ++day) EXPECT_EQ(DayIndex(kDayCodes[day]), static_cast<int32_t>(day));
  for (const char* code : {"", "M", "mo", "Mon", "Xx", "M\xF6"}) EXPECT_EQ(DayIndex(code), -1) << code;
}

TEST(DayTime, NamesDayMasks) {
  std::vector<std::string> names;
  for (const uint32_t mask : {0, 127, 62, 65, 1, 64, 3, 63, 0x2A, 128 + 65}) names.emplace_back(DayMaskText(mask));
  EXPECT_THAT(names, ElementsAre("", "All days", "Workdays", "Weekend", "Sunday", "Saturday", "Mon, Sun",
                                 "Mon, Tue, Wed, Thu, Fri, Sun", "Mon, Wed, Fri", "Weekend"));
}

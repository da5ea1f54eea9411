#include "schedule/DayTime.h"

#include "tests/support/Test.h"

TEST(DayTime, NamesDayMasks) {
  std::vector<std::string> names;
  for (const uint32_t mask : {0, 127, 62, 65, 1, 3, 0x2A, 128 + 65}) names.emplace_back(DayMaskText(mask));
  EXPECT_THAT(names,
              ElementsAre("", "All days", "Workdays", "Weekend", "Sunday", "Mon, Sun", "Mon, Wed, Fri", "Weekend"));
}

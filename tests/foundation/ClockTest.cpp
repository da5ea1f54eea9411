#include "foundation/Clock.h"

#include "tests/support/Test.h"

TEST(Clock, TimesOfDayWrapOverMidnight) {
  const int32_t kCases[][3] = {{86399, 1, 0}, {0, -1, 86399}, {5, -86405, 0}, {2147483647, 2147483647, 23294}};
  for (const auto& [seconds, offset, expected] : kCases)
    EXPECT_EQ(ShiftTimeOfDay(seconds, offset), expected) << seconds;
}

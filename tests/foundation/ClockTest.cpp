#include "foundation/Clock.h"

#include "tests/support/Test.h"

TEST(Clock, LocalTimeIsTheOffsetAway) {
  Clock::Hold({2026, 2, 0, 28, 23, 30, 5, 0}, 3600);
  const SYSTEMTIME local = Clock::Local();
  Clock::Release();
  EXPECT_EQ(std::tuple(local.wMonth, local.wDay, local.wHour, local.wMinute), std::tuple(3, 1, 0, 30));
}

TEST(Clock, TimesOfDayWrapOverMidnight) {
  const int32_t kCases[][3] = {{86399, 1, 0}, {0, -1, 86399}, {5, -86405, 0}, {2147483647, 2147483647, 23294}};
  for (const auto& [seconds, offset, expected] : kCases)
    EXPECT_EQ(ShiftTimeOfDay(seconds, offset), expected) << seconds;
}

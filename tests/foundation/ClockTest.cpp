#include "foundation/Clock.h"

#include "tests/support/Test.h"

namespace {

int64_t Seconds(const SYSTEMTIME& time) {
  FILETIME file;
  SystemTimeToFileTime(&time, &file);
  return static_cast<int64_t>(uint64_t{file.dwHighDateTime} << 32 | file.dwLowDateTime) / 10'000'000;
}

TEST(Clock, LocalTimeIsTheOffsetAway) {
  Clock::Hold({2026, 2, 0, 28, 23, 30, 5, 0}, 3600);
  EXPECT_EQ(Seconds(Clock::Local()), Seconds({2026, 3, 0, 1, 0, 30, 5, 0}));
  Clock::Release();
  const int64_t difference = Seconds(Clock::Local()) - Seconds(Clock::Utc());
  EXPECT_LE(std::llabs(difference - Clock::LocalOffsetSeconds()), 1);  // a second may begin between the two calls
}

TEST(Clock, TimesOfDayWrapOverMidnight) {
  const int32_t kCases[][3] = {
      {86399, 1, 0}, {0, -1, 86399}, {100, 864000, 100}, {5, -86405, 0}, {2147483647, 2147483647, 23294}};
  for (const auto& [seconds, offset, expected] : kCases)
    EXPECT_EQ(ShiftTimeOfDay(seconds, offset), expected) << seconds;
}

}  // namespace

#include "foundation/Clock.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

int64_t Seconds(const SYSTEMTIME& time) {
  FILETIME file;
  SystemTimeToFileTime(&time, &file);
  return static_cast<int64_t>(uint64_t{file.dwHighDateTime} << 32 | file.dwLowDateTime) / 10'000'000;
}

TEST(Clock, HeldTimeStandsStillAndCrossesDays) {
  const struct {
    SYSTEMTIME utc;
    int32_t offset;
    SYSTEMTIME local;
  } kCases[] = {{{2026, 2, 0, 28, 23, 30, 5, 0}, 3600, {2026, 3, 0, 1, 0, 30, 5, 0}},
                {{2026, 1, 0, 1, 1, 0, 0, 0}, -5 * 3600, {2025, 12, 0, 31, 20, 0, 0, 0}},
                {{2026, 7, 0, 1, 12, 0, 0, 0}, 19800, {2026, 7, 0, 1, 17, 30, 0, 0}}};
  for (const auto& row : kCases) {
    Clock::Hold(row.utc, row.offset);
    EXPECT_EQ(Seconds(Clock::Utc()), Seconds(row.utc));
    EXPECT_EQ(Seconds(Clock::Local()), Seconds(row.local));
    EXPECT_EQ(Clock::LocalOffsetSeconds(), row.offset);
  }
  Clock::Release();
  EXPECT_GT(Clock::Utc().wYear, 2025);
}

TEST(Clock, RealOffsetIsWhatSeparatesTheTwoTimes) {
  const int64_t difference = Seconds(Clock::Local()) - Seconds(Clock::Utc());
  EXPECT_LE(std::llabs(difference - Clock::LocalOffsetSeconds()), 1);  // a second may begin between the two calls
}

TEST(Clock, TimesOfDayWrapOverMidnight) {
  const struct {
    int32_t seconds;
    int32_t offset;
    int32_t expected;
  } kCases[] = {{0, 0, 0},
                {86399, 1, 0},
                {0, -1, 86399},
                {3600, -7200, 82800},
                {100, 864000, 100},
                {5, -86405, 0},
                {2147483647, 2147483647, 23294}};
  for (const auto& row : kCases) EXPECT_EQ(ShiftTimeOfDay(row.seconds, row.offset), row.expected) << row.seconds;
}

}  // namespace

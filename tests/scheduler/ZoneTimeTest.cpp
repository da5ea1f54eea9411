#include "scheduler/ZoneTime.h"

#include "tests/support/Test.h"

constexpr int32_t kHour = 3600;

TEST(ZoneTimeTest, MeansTheSameMomentInEveryZone) {
  for (int32_t offset = -12 * kHour; offset <= 14 * kHour; offset += kHour / 4) {
    for (const int32_t utc : {0, 1800, 43200, 84600, 86399, 86400, 88200}) {
      const int32_t moment = 2 * 86400 + utc + offset;  // on a day with room on both sides
      EXPECT_EQ(LocalOfUtc(static_cast<uint32_t>(utc), offset), static_cast<uint32_t>(moment % 86400)) << offset;
      EXPECT_EQ(UtcOfLocal(static_cast<uint32_t>(moment % 86400), offset), static_cast<uint32_t>(utc % 86400));
    }
  }
  EXPECT_EQ(UtcOfLocal(1800, kHour), 84600u);      // 00:30 in winter
  EXPECT_EQ(UtcOfLocal(1800, 2 * kHour), 81000u);  // and in summer
  EXPECT_EQ(LocalOfUtc(0xFFFFFFFF, 0), 23295u);    // out of a file
}

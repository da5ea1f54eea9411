#include "app/ScheduleFiles.h"

#include "tests/support/Test.h"

TEST(ScheduleFiles, TheNewestSeasonCounts) {
  const std::pair<std::vector<TmyString>, const char*> kCases[] = {
      {{"a24all00.zip", "B23ALL00.zip"}, "a24all00.zip"},
      {{"a24all00.zip", "b24all00.zip"}, "b24all00.zip"},
      {{"b25all00.zip", "a26allx2.zip", "b24all09.zip"}, "a26allx2.zip"},
      {{"a26all00.zip", "A26all01.zip"}, "A26all01.zip"},
      {{"zzz.zip", "a12all00.zip"}, "a12all00.zip"}};
  for (const auto& [names, newest] : kCases) EXPECT_STREQ(NewestArchive(names).Chars(), newest);
}

// Which files of the data folder are schedules, and which archive is the newest.
#include "app/ScheduleFiles.h"

#include "tests/support/Test.h"

TEST(ScheduleFiles, TheNewestSeasonCounts) {
  const struct {
    std::vector<TmyString> names;
    const char* newest;
  } kCases[] = {{{}, ""},
                {{"a24all00.zip", "B23ALL00.zip"}, "a24all00.zip"},
                {{"a24all00.zip", "b24all00.zip"}, "b24all00.zip"},
                {{"b25all00.zip", "a26allx2.zip", "b24all09.zip"}, "a26allx2.zip"},
                {{"a26all00.zip", "A26all01.zip"}, "A26all01.zip"},
                {{"zzz.zip", "a12all00.zip"}, "a12all00.zip"},
                {{"x.zip", "y.zip"}, "y.zip"}};
  for (const auto& [names, newest] : kCases) EXPECT_STREQ(NewestArchive(names).Chars(), newest);
}

TEST(ScheduleFiles, OnlyTheScheduleAndArchivesAreListed) {
  const TemporaryFolder folder;
  for (const char* name : {"EIBI.TXT", "a26all00.ZIP", "readme.txt", "a.zip.part"}) {
    ASSERT_TRUE(WriteFileBytes(folder.File(name), "x"));
  }
  const ScheduleFiles files = ListScheduleFiles(folder.Path().c_str());
  EXPECT_TRUE(files.hasEibi);
  EXPECT_EQ(files.archives, std::vector<TmyString>{"a26all00.ZIP"});
  EXPECT_FALSE(ListScheduleFiles((folder.Path() + "\\none").c_str()).hasEibi);
}

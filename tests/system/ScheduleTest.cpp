// A schedule file in the data folder.
#include "tests/support/TestEnvironment.h"
#include "tests/system/PluginFixture.h"

using Schedule = PluginFixture;

TEST_F(Schedule, SampleIsShownWholeAndAHeldFileNotAtAll) {
  std::string samples = MARLUX_SAMPLES "/eibi.txt";
  if (samples[0] == '/') samples = "Z:" + samples;
  const std::string content = ReadFileBytes(samples);
  const auto lines = std::count(content.begin(), content.end(), '\n');
  ASSERT_GT(lines, 100);
  WriteSchedule(content);
  const std::string count = std::to_string(lines - 17);
  EXPECT_EQ(Counts(StartPlugin(7)), count + " of " + count + " broadcasts");
  const HANDLE held = CreateFileA(DataFile().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_EQ(Counts(StartPlugin(8)), "0 of 0 broadcasts");
  CloseHandle(held);
  DeleteFileA(DataFile().c_str());
  host_.Start(9);  // and not further: it is about to ask
  EXPECT_EQ(Counts(host_.WindowOf(9)), "0 of 0 broadcasts");
}

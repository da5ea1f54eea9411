// A schedule file in the data folder, and what the host is told when the user picks broadcasts of it.
#include "tests/support/TestEnvironment.h"
#include "tests/system/PluginFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_F(Schedule, KeyboardTunesInFourCalls) {
  const uint32_t instance = host_.Start(7);
  const HWND window = host_.WindowOf(7);
  SetFocus(Grid(window));
  EXPECT_EQ(GetFocus(), Grid(window));
  host_.Clear();
  for (const WPARAM key : {VK_HOME, VK_DOWN, VK_UP}) KeyWhereTheFocusIs(key);
  EXPECT_THAT(host_.Calls(), IsEmpty());
  KeyWhereTheFocusIs(VK_RETURN);
  EXPECT_THAT(host_.Calls(),
              ElementsAre(HostCall{instance, 0x800, 9420000, 0, "0"}, HostCall{instance, 0x900, 1, 0, "0"},
                          HostCall{instance, 0xF00, 0, 0, "0"}, HostCall{instance, 0x902, 5000, 0, "0"}));
}

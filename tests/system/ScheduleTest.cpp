// A schedule file in the data folder, and what the host is told when the user picks broadcasts of it.
#include "tests/support/TestEnvironment.h"
#include "tests/system/PluginFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Schedule : public PluginFixture {
 protected:
  // What a plug-in that has just been started says of the file there is.
  std::string CountsOfFile() {
    const std::string text = Counts(StartPlugin());
    host_.Close(7);
    return text;
  }
};

}  // namespace

TEST_F(Schedule, SampleIsShownWhole) {
  std::string samples = MARLUX_SAMPLES "/eibi.txt";
  if (samples[0] == '/') samples = "Z:" + samples;
  const std::string content = ReadFileBytes(samples);
  const auto lines = std::count(content.begin(), content.end(), '\n');
  ASSERT_GT(lines, 100);
  WriteSchedule(content);
  const std::string count = std::to_string(lines - 17);
  EXPECT_EQ(CountsOfFile(), count + " of " + count + " broadcasts");
}

TEST_F(Schedule, FilesOfEveryKindAreSurvived) {
  const std::string good = Line("9420", "Good");
  struct {
    const char* name;
    std::string content;
    const char* counts;
  } const kCases[] = {
      {"empty", "", "0 of 0 broadcasts"},
      {"only the header", Header(), "0 of 0 broadcasts"},
      {"cut in the header", Header().substr(0, 70), "0 of 0 broadcasts"},
      {"cut in a broadcast", Header() + good + good.substr(0, 40), "1 of 1 broadcasts"},
      {"62 characters", Header() + good.substr(0, 62) + "\r\n", "0 of 0 broadcasts"},
      {"63 characters", Header() + good.substr(0, 63) + "\r\n", "1 of 1 broadcasts"},
      {"10,000 characters", Header() + good.substr(0, 75) + std::string(9925, 'x') + "\r\n", "1 of 1 broadcasts"},
      {"bytes above 127", Header() + Line("6005", "\xC4\xD6\xDC \xFF\x80\xA0"), "1 of 1 broadcasts"},
      {"zero bytes", Header() + good + std::string(500, '\0') + "\r\n" + good, "2 of 2 broadcasts"},
      {"no frequency", Header() + Line("none", "Bad") + Line("0", "Bad") + good, "1 of 1 broadcasts"},
  };
  for (const auto& row : kCases) {
    WriteSchedule(row.content);
    EXPECT_EQ(CountsOfFile(), row.counts) << row.name;
  }
  DeleteFileA(DataFile().c_str());
  host_.Start(7);  // and not further: it is about to ask
  EXPECT_EQ(Counts(host_.WindowOf(7)), "0 of 0 broadcasts");
}

TEST_F(Schedule, FileHeldByAnotherProgramIsNoFile) {
  const HANDLE held = CreateFileA(DataFile().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_EQ(CountsOfFile(), "0 of 0 broadcasts");
  CloseHandle(held);
  EXPECT_EQ(CountsOfFile(), "3 of 3 broadcasts");
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

// A schedule file in the data folder, and what the host is told when the user picks broadcasts of it.
#include <fstream>

#include "tests/support/TestEnvironment.h"
#include "tests/system/PluginFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Schedule : public PluginFixture {};

// What a plug-in that has just been started says of the file there is.
std::string CountsOfFile(FakeHost& host, std::string (*counts)(HWND)) {
  EXPECT_NE(host.Start(7), 0u);
  host.PumpFor(0);
  const std::string text = counts(host.WindowOf(7));
  host.Close(7);
  return text;
}

std::string RandomBytes(size_t size) {
  std::string bytes(size, '\0');
  uint32_t state = 12345;
  for (char& byte : bytes) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<char>(state >> 24);
  }
  return bytes;
}

}  // namespace

TEST_F(Schedule, SampleIsShownWhole) {
  std::string samples = MARLUX_SAMPLES "/eibi.txt";
  if (samples[0] == '/') samples = "Z:" + samples;
  const std::string content = ReadFileBytes(samples);
  const auto lines = std::count(content.begin(), content.end(), '\n');
  ASSERT_GT(lines, 100);
  WriteSchedule(content);
  const std::string count = std::to_string(lines - 17);
  EXPECT_EQ(CountsOfFile(host_, &Counts), count + " of " + count + " broadcasts");
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
    EXPECT_EQ(CountsOfFile(host_, &Counts), row.counts) << row.name;
  }
  DeleteFileA(DataFile().c_str());
  EXPECT_EQ(CountsOfFile(host_, &Counts), "0 of 0 broadcasts");
}

TEST_F(Schedule, RandomBytesLeaveTheWindowUsable) {
  WriteSchedule(Header() + RandomBytes(300000));
  const HWND window = StartPlugin();
  EXPECT_THAT(Counts(window), testing::MatchesRegex("\\d+ of \\d+ broadcasts"));
  for (const WPARAM key : {VK_END, VK_PRIOR, VK_HOME, VK_RETURN}) Key(Grid(window), key);
  for (int x = 5; x < 700; x += 40) Click(Grid(window), x, 6);  // sorts by each column
  UpdateWindow(window);
  EXPECT_TRUE(IsWindow(window));
}

TEST_F(Schedule, FileHeldByAnotherProgramIsNoFile) {
  const HANDLE held = CreateFileA(DataFile().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_EQ(CountsOfFile(host_, &Counts), "0 of 0 broadcasts");
  CloseHandle(held);
  EXPECT_EQ(CountsOfFile(host_, &Counts), "3 of 3 broadcasts");
}

TEST_F(Schedule, HundredMegabytesAreCutAtTheLastLineThereIsRoomFor) {
  {
    std::ofstream file(DataFile(), std::ios::binary);
    file << Header();
    std::string thousand;
    for (int i = 0; i < 1000; ++i) thousand += Line(std::to_string(3000 + i), "A station among many");
    for (size_t written = 0; written < 100'000'000; written += thousand.size()) file << thousand;
  }
  const DWORD begin = GetTickCount();
  const HWND window = StartPlugin();
  const DWORD took = GetTickCount() - begin;
  RecordProperty("milliseconds", static_cast<int>(took));
  EXPECT_LT(took, 20'000u);  // it is not quadratic; no measure of speed
  constexpr int kRows = 262'144 - 17;
  EXPECT_EQ(Counts(window), std::to_string(kRows) + " of " + std::to_string(kRows) + " broadcasts");
  Key(Grid(window), VK_END);
  Key(Grid(window), VK_RETURN);
  EXPECT_THAT(TunedFrequencies(), ElementsAre((3000u + (kRows - 1) % 1000) * 1000));
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

TEST_F(Schedule, DoubleClickTunesOnce) {
  const HWND window = StartPlugin();
  EXPECT_EQ(DoubleClickLastRow(Grid(window)), 15770500u);
  EXPECT_EQ(host_.Calls().size(), 4u);
}

TEST_F(Schedule, TitleClickSortsBothWays) {
  const HWND window = StartPlugin();
  const HWND grid = Grid(window);
  for (const uint32_t first : {6005000u, 15770500u, 6005000u}) {
    Click(grid, 20, 8);
    host_.PumpFor(GetDoubleClickTime() + 20);  // the next click is one of its own
    host_.Clear();
    Key(grid, VK_HOME);
    Key(grid, VK_RETURN);
    EXPECT_THAT(TunedFrequencies(), ElementsAre(first));
  }
}

TEST_F(Schedule, AutoTuningWaitsForTheKeyboardToRest) {
  const HWND window = StartPlugin();
  const HWND grid = Grid(window);
  Key(grid, VK_HOME);
  host_.PumpFor(500);
  EXPECT_THAT(host_.Calls(), IsEmpty());  // it is off at first
  SwitchAutoTuning(window);
  Key(grid, VK_DOWN);
  host_.PumpFor(250);
  Key(grid, VK_DOWN);
  host_.PumpFor(250);
  EXPECT_THAT(host_.Calls(), IsEmpty());  // 500 ms after the first move, 250 after the last
  host_.PumpFor(400);
  EXPECT_THAT(TunedFrequencies(), ElementsAre(15770500u));
  host_.PumpFor(500);
  EXPECT_EQ(host_.Calls().size(), 4u);
  Key(grid, VK_HOME);
  SwitchAutoTuning(window);
  host_.PumpFor(500);
  EXPECT_EQ(host_.Calls().size(), 4u);  // switched off meanwhile
}

TEST_F(Schedule, AutoTuningFollowsAClickAtOnce) {
  const HWND window = StartPlugin();
  SwitchAutoTuning(window);
  Key(Grid(window), VK_HOME);  // the click takes its place
  for (int y = 200; y > 40 && host_.Calls().empty(); y -= 6) Click(Grid(window), 20, y);
  EXPECT_THAT(TunedFrequencies(), ElementsAre(15770500u));
  host_.PumpFor(500);
  EXPECT_EQ(host_.Calls().size(), 4u);
}

TEST_F(Schedule, FrequencyBoxNarrowsTheList) {
  const HWND window = StartPlugin();
  SetFocus(Grid(window));
  for (int stop = 0; stop < 3; ++stop) KeyWhereTheFocusIs(VK_TAB);  // database, auto-tuning, frequency
  KeyWhereTheFocusIs(VK_SPACE);
  EXPECT_EQ(Counts(window), "1 of 3 broadcasts");  // around 6000 kHz
  KeyWhereTheFocusIs(VK_SPACE);
  EXPECT_EQ(Counts(window), "3 of 3 broadcasts");
}

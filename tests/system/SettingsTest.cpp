// What a user leaves behind at one close and finds again at the next start, and what foreign values do.
#include "tests/support/SeasonArchive.h"
#include "tests/system/PluginFixture.h"

namespace {

struct Settings : PluginFixture {
  static std::string Stored(const char* name) {
    char bytes[256];
    DWORD size = sizeof bytes;
    if (RegGetValueA(HKEY_CURRENT_USER, kKey, name, RRF_RT_ANY, nullptr, bytes, &size)) return "none";
    return {bytes, size};
  }
  static uint32_t Number(const char* name) { return *reinterpret_cast<const uint32_t*>(Stored(name).data()); }
  static std::string Text(const char* name) { return Stored(name).substr(0, Stored(name).find('\0')); }
  static std::vector<int32_t> Numbers(const char* name, size_t most = 22) {
    const std::string bytes = Stored(name);
    std::vector<int32_t> values(std::min(most, bytes.size() / 4));
    memcpy(values.data(), bytes.data(), values.size() * 4);
    return values;
  }
  static void Put(const char* name, DWORD type, const std::string& bytes) {
    RegSetKeyValueA(HKEY_CURRENT_USER, kKey, name, type, bytes.data(), static_cast<DWORD>(bytes.size()));
  }
  static void Put(const char* name, uint32_t number) { Put(name, REG_DWORD, Words({number})); }
  static void Put(const char* name, const std::vector<int32_t>& values) {
    Put(name, REG_BINARY, {reinterpret_cast<const char*>(values.data()), values.size() * 4});
  }
  static bool IsAt(HWND window, const RECT& expected) {
    RECT place;
    return GetWindowRect(window, &place) && EqualRect(&place, &expected);
  }
  void Round() {
    StartPlugin();
    host_.Close(7);
  }
};

}  // namespace

TEST_F(Settings, WhatTheUserChangedIsThereAgain) {
  HWND window = StartPlugin();
  EXPECT_TRUE(IsAt(window, {0, 0, 800, 600}));
  SetWindowPos(window, nullptr, 40, 30, 700, 500, SWP_NOZORDER);
  Choose(window, "&UTC time");
  SwitchAutoTuning(window);
  Choose(window, "&View scheduler");
  SetWindowPos(FakeHost::Find("Scheduler"), nullptr, 60, 70, 900, 400, SWP_NOZORDER);
  host_.Close(7);
  EXPECT_EQ(Number("IsUtcTime"), 1u);
  window = StartPlugin();
  EXPECT_TRUE(IsAt(window, {40, 30, 740, 530}));
  Key(Grid(window), VK_END);
  EXPECT_TRUE(PumpUntil([&] { return host_.Calls().size() == 4; })) << "auto-tuning is on";
  Choose(window, "&UTC time");
  Choose(window, "&View scheduler");
  EXPECT_TRUE(IsAt(FakeHost::Find("Scheduler"), {60, 70, 960, 470}));
  SetWindowPos(FakeHost::Find("Scheduler"), nullptr, -9000, 70, 900, 400, SWP_NOZORDER);
  Choose(window, "&View scheduler");
  EXPECT_TRUE(MonitorFromWindow(FakeHost::Find("Scheduler"), MONITOR_DEFAULTTONULL)) << "its monitor has gone";
  ShowWindow(window, SW_MAXIMIZE);
  host_.Close(7);
  EXPECT_EQ(Number("IsUtcTime"), 0u) << "it was on";
  EXPECT_EQ(Number("Left"), 40u) << "the place that a maximised window goes back to";
}

TEST_F(Settings, ForeignValuesAreSurvivedAndKeepTheirMeaning) {
  const std::vector<int32_t> odd = {-1, 100000, 0, INT32_MIN, INT32_MAX, 7, 7, 7, 7}, widths(22, 100000);
  std::vector<int32_t> slots(22, 3);
  slots[1] = -5;
  Put("Left", 20000u);
  Put("TranslatedCount", 30u);
  Put("DBDefault", 77u);
  Put("TranslatedPos", slots);
  Put("GridColumsCountFcc", widths);
  Put("GridColumsCountEibi", odd);
  Put("SchedulerTable", odd);
  const HWND window = StartPlugin();
  EXPECT_NE(MonitorFromWindow(window, MONITOR_DEFAULTTONULL), nullptr);
  EXPECT_EQ(CountsOf(window), "3 of 3 broadcasts");
  host_.Close(7);
  EXPECT_EQ(Number("Left"), 20000u);
  EXPECT_EQ(Number("TranslatedCount"), 22u);
  EXPECT_EQ(Numbers("TranslatedPos"), slots);
  EXPECT_EQ(Numbers("GridColumsCountFcc"), widths);
  EXPECT_EQ(Numbers("GridColumsCountEibi"), odd);
}

TEST_F(Settings, TheArchiveAndTheDatabaseThatWereShownLast) {
  const std::string archives[] = {documents_.DataFolder() + "\\a26all00.zip", documents_.DataFolder() + "\\B25.zip"};
  DeleteFileA(ArchiveFile().c_str());
  for (const std::string& archive : archives) CopyFileA(SeasonArchive().c_str(), archive.c_str(), FALSE);
  Put("DBDefault", 1u);
  for (const std::string stored : {"b25.ZIP", "a26all00.zip", "c.zip"}) {
    Put("CurrentFile", REG_SZ, stored + '\0');
    EXPECT_NE(CountsOf(StartPlugin()), "3 of 3 broadcasts");
    host_.Close(7);
    EXPECT_EQ(Text("CurrentFile"), stored[0] == 'b' ? "B25.zip" : "a26all00.zip");
    EXPECT_EQ(Number("DBDefault"), 1u);
  }
  for (const std::string& archive : archives) DeleteFileA(archive.c_str());
  const auto question = [] { return FakeHost::Find("Database files initialization needed"); };
  host_.When([&] { return question() != nullptr; }, [&] { SendMessageA(question(), WM_CLOSE, 0, 0); });
  Round();
  EXPECT_EQ(Text("CurrentFile"), "a26all00.zip") << "while the folder has no archive at all";
}

TEST_F(Settings, ColumnsAsTheMouseLeftThem) {
  const auto drag = [&](int from, int to) {
    const HWND grid = Grid(StartPlugin());
    for (const auto& [message, x] : {std::pair{WM_LBUTTONDOWN, from}, {WM_MOUSEMOVE, to}, {WM_LBUTTONUP, to}}) {
      SendMessageA(grid, static_cast<UINT>(message), MK_LBUTTON, MAKELPARAM(x, 8));
    }
    host_.Close(7);
  };
  ASSERT_TRUE(CopyFileA(SeasonArchive().c_str(), ArchiveFile().c_str(), FALSE));
  for (const auto& [database, name] : {std::pair{0u, "GridColumsCountEibi"}, {1u, "GridColumsCountFcc"}}) {
    Put("DBDefault", uint32_t{database});
    Put(name, std::vector<int32_t>(9, 100));
    drag(100, 140);  // the first border
    drag(240, 300);  // the second one, where it was left
    EXPECT_THAT(Numbers(name, 3), ElementsAre(140, 160, 100));
  }
  drag(190, 20);  // the second title
  Round();
  EXPECT_THAT(Numbers("TranslatedPos", 3), ElementsAre(1, 0, 2));
  EXPECT_THAT(Numbers("GridColumsCountFcc", 3), ElementsAre(160, 140, 100));
}

// Somebody, a backup say, has it while the plug-in starts.
TEST_F(Settings, TasksThatCouldNotBeReadAreNotLost) {
  const std::string name = TaskFile(), tasks(96, 't');
  ASSERT_TRUE(WriteFileBytes(name, tasks));
  const HANDLE locked = CreateFileA(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  StartPlugin();
  CloseHandle(locked);
  host_.Close(7);
  EXPECT_EQ(ReadFileBytes(name), tasks);
  Round();
  EXPECT_EQ(ReadFileBytes(name), tasks) << "and only once";
}

// The second time another window has saved meanwhile, and this one has nothing new to say.
TEST_F(Settings, TheTasksOfTwoWindows) {
  const std::string name = TaskFile(), tasks(96, 't'), others(144, 'o');
  ASSERT_TRUE(WriteFileBytes(name, tasks));
  const HWND window = StartPlugin();
  ASSERT_TRUE(DeleteFileA(name.c_str()));
  Choose(window, "&UTC time");
  SendMessageA(window, WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(Number("IsUtcTime"), 1u) << "the process may not come to its end";
  EXPECT_EQ(ReadFileBytes(name), tasks);
  ASSERT_TRUE(WriteFileBytes(name, others));
  host_.Close(7);
  EXPECT_EQ(ReadFileBytes(name), others);
}

// An update may want the files free and leave the program running: its tasks must go on.
TEST_F(Settings, TheEndOfASession) {
  for (const DWORD goesOn : {1u, 0u}) {
    const HWND window = StartPlugin();
    Choose(window, "&UTC time");  // the second time off again
    EXPECT_TRUE(SendMessageA(window, WM_QUERYENDSESSION, 0, 0));
    SendMessageA(window, WM_ENDSESSION, FALSE, 0);
    EXPECT_NE(Number("IsUtcTime"), goesOn) << "somebody else did not want it";
    SendMessageA(window, WM_ENDSESSION, TRUE, goesOn ? ENDSESSION_CLOSEAPP : 0);
    EXPECT_EQ(Number("IsUtcTime"), goesOn);
    EXPECT_EQ(KillTimer(window, 1), static_cast<BOOL>(goesOn)) << "the ticks";
    host_.Close(7);
  }
}

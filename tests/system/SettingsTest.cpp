// What a user leaves behind at one close and finds again at the next start, and what foreign values do.
#include "tests/support/SeasonArchive.h"
#include "tests/system/PluginFixture.h"

namespace {

constexpr char kKey[] = "Software\\Corvane Communications\\Marlux 3";

class Settings : public PluginFixture {
 public:  // tables of functions reach in
  static DWORD Number(const char* name) {
    DWORD value = 0xDDDDDDDD, size = sizeof value;
    RegGetValueA(HKEY_CURRENT_USER, kKey, name, RRF_RT_REG_DWORD, nullptr, &value, &size);
    return value;
  }
  static std::string Text(const char* name) {
    char text[MAX_PATH] = "";
    DWORD size = sizeof text;
    RegGetValueA(HKEY_CURRENT_USER, kKey, name, RRF_RT_REG_SZ, nullptr, text, &size);
    return text;
  }
  static std::vector<int32_t> Numbers(const char* name) {
    std::vector<int32_t> values(64);
    DWORD size = 64 * 4;
    if (RegGetValueA(HKEY_CURRENT_USER, kKey, name, RRF_RT_REG_BINARY, nullptr, values.data(), &size)) size = 0;
    values.resize(size / 4);
    return values;
  }
  static void Put(const char* name, DWORD type, const void* data, size_t size) {
    RegSetKeyValueA(HKEY_CURRENT_USER, kKey, name, type, data, static_cast<DWORD>(size));
  }
  static void PutNumber(const char* name, DWORD value) { Put(name, REG_DWORD, &value, sizeof value); }
  static RECT PlaceOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    return place;
  }
  static bool IsUtc(HWND window) {
    for (const MenuEntry& entry : Entries(GetMenu(window))) {
      if (entry.text == "&UTC time") return entry.isChecked;
    }
    return false;
  }
  void Round() {
    StartPlugin();
    host_.Close(7);
  }
};

bool operator==(const RECT& a, const RECT& b) {
  return EqualRect(&a, &b);
}

}  // namespace

TEST_F(Settings, WhatTheUserChangedIsThereAgain) {
  HWND window = StartPlugin();
  EXPECT_TRUE(PlaceOf(window) == (RECT{0, 0, 800, 600}));
  EXPECT_FALSE(IsUtc(window));
  SetWindowPos(window, nullptr, 40, 30, 700, 500, SWP_NOZORDER);
  Choose(window, "&UTC time");
  SwitchAutoTuning(window);
  Choose(window, "&View scheduler");
  SetWindowPos(FakeHost::Find("Scheduler"), nullptr, 60, 70, 900, 400, SWP_NOZORDER);
  host_.Close(7);
  window = StartPlugin();
  EXPECT_TRUE(PlaceOf(window) == (RECT{40, 30, 740, 530}));
  EXPECT_TRUE(IsUtc(window));
  Choose(window, "&UTC time");
  EXPECT_FALSE(IsUtc(window));
  Key(Grid(window), VK_END);
  EXPECT_TRUE(host_.PumpUntil([&] { return host_.Calls().size() == 4; })) << "auto-tuning is on";
  Choose(window, "&View scheduler");
  const HWND scheduler = FakeHost::Find("Scheduler");
  EXPECT_TRUE(PlaceOf(scheduler) == (RECT{60, 70, 960, 470}));
  SetWindowPos(scheduler, nullptr, -9000, 70, 900, 400, SWP_NOZORDER);
  Choose(window, "&View scheduler");
  EXPECT_NE(MonitorFromWindow(scheduler, MONITOR_DEFAULTTONULL), nullptr) << "its monitor has gone";
  SetWindowPos(scheduler, nullptr, 60, 70, 900, 400, SWP_NOZORDER);
  ShowWindow(window, SW_MAXIMIZE);
  host_.Close(7);
  EXPECT_EQ(Number("Left"), 40u) << "the place that a maximised window goes back to";
  EXPECT_EQ(Number("SchedulerPosX"), 60u);
  EXPECT_EQ(Text("ExportPath"), documents_.Path());
}

TEST_F(Settings, ForeignValuesAreSurvivedAndKeepTheirMeaning) {
  const std::vector<int32_t> odd = {-1, 100000, 0, INT32_MIN, INT32_MAX, 7, 7, 7, 7};
  std::vector<int32_t> slots(22, 3), widths(22, 100000);
  slots[1] = -5;
  PutNumber("Left", 20000);
  PutNumber("SchedulerPosX", 0x80000000);
  PutNumber("SchedulerWidth", 0x7FFFFFFF);
  PutNumber("TranslatedCount", 30);
  Put("TranslatedPos", REG_BINARY, slots.data(), 88);
  Put("GridColumsCountFcc", REG_BINARY, widths.data(), 88);
  Put("GridColumsCountEibi", REG_BINARY, odd.data(), 36);
  Put("SchedulerTable", REG_BINARY, odd.data(), 32);
  Put("CurrentFile", REG_SZ, "gone.zip", 8);  // without its end
  PutNumber("DBDefault", 77);
  PutNumber("IsUtcTime", 2);
  const HWND window = StartPlugin();
  EXPECT_NE(MonitorFromWindow(window, MONITOR_DEFAULTTONULL), nullptr);
  EXPECT_EQ(Counts(window), "3 of 3 broadcasts");
  EXPECT_TRUE(IsUtc(window));
  Choose(window, "&View scheduler");
  const RECT scheduler = PlaceOf(FakeHost::Find("Scheduler"));
  EXPECT_LE(scheduler.right - scheduler.left, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_NE(MonitorFromRect(&scheduler, MONITOR_DEFAULTTONULL), nullptr);
  host_.Close(7);
  EXPECT_EQ(Number("Left"), 20000u);
  EXPECT_EQ(Number("SchedulerPosX"), 0x80000000);
  EXPECT_EQ(Number("TranslatedCount"), 22u);
  EXPECT_EQ(Numbers("TranslatedPos"), slots);
  EXPECT_EQ(Numbers("GridColumsCountFcc"), widths);
  EXPECT_EQ(Numbers("GridColumsCountEibi"), odd);
  EXPECT_EQ(Text("CurrentFile"), "none.zip") << "that of the folder";
  EXPECT_EQ(Number("DBDefault"), 0u);
}

TEST_F(Settings, TheArchiveAndTheDatabaseThatWereShownLast) {
  const std::string folder = documents_.DataFolder() + "\\";
  DeleteFileA((folder + "none.zip").c_str());
  for (const char* name : {"a26all00.zip", "B25.zip"}) CopyFileA(SeasonArchive().c_str(), (folder + name).c_str(), 0);
  PutNumber("DBDefault", 1);
  for (const char* stored : {"b25.ZIP", "a26all00.zip", "c.zip"}) {
    Put("CurrentFile", REG_SZ, stored, strlen(stored) + 1);
    const HWND window = StartPlugin();
    EXPECT_NE(Counts(window), "3 of 3 broadcasts");
    host_.Close(7);
    EXPECT_EQ(Text("CurrentFile"), stored[0] == 'b' ? "B25.zip" : "a26all00.zip");
    EXPECT_EQ(Number("DBDefault"), 1u);
  }
  for (const char* name : {"a26all00.zip", "B25.zip"}) DeleteFileA((folder + name).c_str());
  const auto question = [] { return FakeHost::Find("Database files initialization needed"); };
  host_.When([&] { return question() != nullptr; }, [&] { SendMessageA(question(), WM_CLOSE, 0, 0); });
  Round();
  EXPECT_EQ(Text("CurrentFile"), "a26all00.zip") << "while the folder has no archive at all";
}

TEST_F(Settings, ColumnsAsTheMouseLeftThem) {
  const auto drag = [&](HWND window, int from, int to) {
    for (const auto& [message, x] : {std::pair{WM_LBUTTONDOWN, from}, {WM_MOUSEMOVE, to}, {WM_LBUTTONUP, to}}) {
      SendMessageA(Grid(window), static_cast<UINT>(message), MK_LBUTTON, MAKELPARAM(x, 8));
    }
  };
  ASSERT_TRUE(CopyFileA(SeasonArchive().c_str(), ArchiveFile().c_str(), FALSE));
  PutNumber("DBDefault", 1);
  HWND window = StartPlugin();
  drag(window, 100, 140);  // the first border
  drag(window, 190, 20);   // the second title
  host_.Close(7);
  std::vector<int32_t> slots = {1, 0, 2, 3, 4, 9, 13, 14, 15, 16}, widths = {100, 140};
  slots.resize(22);
  widths.resize(10, 100);
  const int32_t own = Numbers("GridColumsCountFcc").back();
  widths.resize(22, own);
  EXPECT_EQ(Numbers("TranslatedPos"), slots);
  EXPECT_EQ(Numbers("GridColumsCountFcc"), widths);
  window = StartPlugin();
  drag(window, 240, 300);  // the second border, where it was left
  host_.Close(7);
  widths[1] = 200;
  EXPECT_EQ(Numbers("TranslatedPos"), slots);
  EXPECT_EQ(Numbers("GridColumsCountFcc"), widths);
  PutNumber("DBDefault", 0);
  std::vector<int32_t> eibi = Numbers("GridColumsCountEibi");
  window = StartPlugin();
  drag(window, eibi[0], eibi[0] + 30);
  drag(window, eibi[0] + 30 + eibi[1], eibi[0] + eibi[1] + 50);
  host_.Close(7);
  eibi[0] += 30;
  eibi[1] += 20;
  EXPECT_EQ(Numbers("GridColumsCountEibi"), eibi);
  Round();
  EXPECT_EQ(Numbers("GridColumsCountEibi"), eibi) << "they were in use meanwhile";
}

// Somebody, a backup say, has it while the plug-in starts.
TEST_F(Settings, TasksThatCouldNotBeReadAreNotLost) {
  const std::string name = documents_.DataFolder() + "\\tasks.mxt", tasks(96, 't');
  ASSERT_TRUE(WriteFileBytes(name, tasks));
  const HANDLE locked = CreateFileA(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  StartPlugin();
  CloseHandle(locked);
  host_.Close(7);
  EXPECT_EQ(ReadFileBytes(name), tasks);
  StartPlugin();
  host_.Close(7);
  EXPECT_EQ(ReadFileBytes(name), tasks) << "and only once";
}

// The second time another window has saved meanwhile, and this one has nothing new to say.
TEST_F(Settings, TheTasksOfTwoWindows) {
  const std::string name = documents_.DataFolder() + "\\tasks.mxt", tasks(96, 't'), others(144, 'o');
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

TEST_F(Settings, EachInstanceWritesAtItsOwnEnd) {
  for (const uint32_t handle : {7u, 8u, 9u}) {
    SetWindowPos(StartPlugin(handle), nullptr, static_cast<int>(handle), 0, 700, 500, SWP_NOZORDER);
  }
  for (const uint32_t handle : {9u, 7u, 8u}) {
    EXPECT_EQ(Counts(host_.WindowOf(handle)), "3 of 3 broadcasts");
    host_.Close(handle);
    EXPECT_EQ(Number("Left"), handle);
  }
}

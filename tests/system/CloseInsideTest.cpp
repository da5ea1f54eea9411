// The host closes the plug-in, or unloads its library, while code of the plug-in is on the stack.
#include "tests/system/PluginFixture.h"

namespace {

struct CloseInside : PluginFixture {
  void CloseAndUnload() {
    host_.Close(7);
    host_.Done();
    host_.Unload();
  }
  // The host goes on: a fresh load works, ends and leaves nothing.
  void ExpectFreshStart() {
    PumpFor(20);
    EXPECT_TRUE(WriteTask(false));
    EXPECT_FALSE(hasSeenQuit || host_.WasLate());
    ASSERT_TRUE(host_.Load());
    const HWND window = StartPlugin();
    EXPECT_EQ(CountsOf(window), "3 of 3 broadcasts");
    EXPECT_TRUE(IsWindowEnabled(window));
    Enter(window);
    EXPECT_EQ(host_.Calls().size(), 4u);
    CloseAndUnload();
    EXPECT_EQ(GetModuleHandleA("marlux3.dll"), nullptr);
    EXPECT_THAT(FakeHost::TopWindows(), IsEmpty());
    ASSERT_TRUE(host_.Load());
  }
  // A menu, a dialog, the system's own dialog or a drop-down list, which is the one window without a caption.
  static bool IsLoopOpen() {
    for (const char* caption : {"About", "Item details", "HFCC options", "New Task", ""}) {
      if (FakeHost::Find(caption)) return true;
    }
    return FakeHost::Find("", "#32768") || !FakeHost::TopWindows("#32770").empty();
  }
  // One record, due all the time once it is enabled: 9420 kHz, AM.
  bool WriteTask(bool enabled) const {
    return WriteFileBytes(TaskFile(), Words({9420000, 0, 1, 0, 0, 0, 0, 0x7FFFFFFF, 0, 0, 127, enabled}));
  }

  void Enter(HWND window) {
    Key(Grid(window), VK_HOME);
    Key(Grid(window), VK_RETURN);
  }
  void DoubleClick(HWND window) {
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDOWN, WM_LBUTTONUP}) {
      PostMessageA(Grid(window), message, 0, MAKELPARAM(20, 30));
    }
  }
  void RestAfterAKey(HWND window) {
    SwitchAutoTuning(window);
    Key(Grid(window), VK_END);
  }
  void CloseBox(HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0); }
  void Menu(HWND window) {
    Key(Grid(window), VK_HOME);
    PostMessageA(Grid(window), WM_CONTEXTMENU, 0, -1);
  }
  void MenuBar(HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_KEYMENU, 'f'); }
  void MenuOfEdit(HWND window) {
    PostMessageA(FindWindowExA(Panel(window), nullptr, "Edit", nullptr), WM_CONTEXTMENU, 0, -1);
  }
  void Details(HWND window) {
    Menu(window);
    PostMessageA(Grid(window), WM_CHAR, 'd', 0);  // the menu's loop takes it
  }
  void PressTitle(HWND window) { PostMessageA(Grid(window), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 8)); }
  // The timer may come as soon as messages do.
  HWND StartWithoutTicks() {
    EXPECT_NE(host_.Start(7), 0u);
    host_.Clear();
    KillTimer(host_.WindowOf(7), 1);
    return host_.WindowOf(7);
  }
  void DueTask(HWND window) { SendMessageA(window, WM_TIMER, 1, 0); }
  void DropDown(HWND window) {
    const HWND combo = GetWindow(GetWindow(Panel(window), GW_CHILD), GW_HWNDLAST);
    SetFocus(combo);
    Key(combo, VK_F4);
  }
};

}  // namespace

TEST_F(CloseInside, EveryPlaceByCloseAndByUnload) {
  const auto choose = [](const char* item) {
    return [item](CloseInside* test, HWND window) { test->Choose(window, item); };
  };
  const struct {
    const char* name;
    std::function<void(CloseInside*, HWND)> reach;
    uint32_t during = 0;                // this call; 0 is a loop
    std::vector<uint32_t> before = {};  // the farewell
  } kPlaces[] = {
      {"frequency", &CloseInside::Enter, 0x800, {0x800}},
      {"third step", &CloseInside::Enter, 0xF00, {0x800, 0x900, 0xF00}},
      {"last step", &CloseInside::Enter, 0x902, {0x800, 0x900, 0xF00, 0x902}},
      {"mouse", &CloseInside::DoubleClick, 0x900, {0x800, 0x900}},
      {"timer", &CloseInside::RestAfterAKey, 0x900, {0x800, 0x900}},
      {"recording's name", &CloseInside::PressFirstMediaButton, 0x4002, {0x4002}},
      {"recording", &CloseInside::PressFirstMediaButton, 0x1101, {0x4002, 0x1101}},
      {"end", &CloseInside::CloseBox, 0x1509},
      {"last call", &CloseInside::CloseBox, 0x4000},
      {"box", choose("&About")},
      {"menu", &CloseInside::Menu},
      {"menu bar", &CloseInside::MenuBar},
      {"drop-down list", &CloseInside::DropDown},
      {"details", &CloseInside::Details},
      {"columns", choose("HFCC &settings")},
      {"export", choose("&Export items to CSV")},
      {"title", &CloseInside::PressTitle},
      {"new task's frequency", choose("&New task"), 0x4002, {0x4002}},
      {"task editor", choose("&New task"), 0, {0x4002}},
      {"due task", &CloseInside::DueTask, 0x900, {0x800, 0x900}},
  };
  for (const auto& place : kPlaces) {
    for (const bool unload : {false, true}) {
      SCOPED_TRACE(std::string(place.name) + (unload ? ", unload" : ""));
      ForgetSettings();
      const bool isDue = place.name == std::string("due task");
      ASSERT_TRUE(WriteTask(isDue));
      const HWND window = isDue ? StartWithoutTicks() : StartPlugin();
      const auto close = [&] { unload ? CloseAndUnload() : host_.Close(7); };
      const auto isReached = [&] { return IsLoopOpen() || GetCapture(); };
      place.during == 0 ? host_.When(isReached, close) : host_.During(place.during, close);
      place.reach(this, window);
      EXPECT_TRUE(PumpUntil([&] { return !IsWindow(window); }, 8000));
      EXPECT_FALSE(IsLoopOpen());
      EXPECT_EQ(GetCapture(), nullptr);
      std::vector<uint32_t> codes = place.before;
      codes.insert(codes.end(), {0x1509, 0x4000});
      EXPECT_EQ(Codes(), codes);
      ExpectFreshStart();
    }
  }
}

TEST_F(CloseInside, ASecondInstanceGoesWithTheFirst) {
  const HWND seven = StartPlugin(7), nine = StartPlugin(9);
  host_.During(0x1509, [&] { host_.Close(9); });
  host_.Close(7);
  EXPECT_FALSE(IsWindow(seven) || IsWindow(nine));
  EXPECT_THAT(Codes(), ElementsAre(0x1509u, 0x1509u, 0x4000u, 0x4000u));
  ExpectFreshStart();
}

// The loop of the second box runs inside that of the first one, which goes first.
TEST_F(CloseInside, OuterOfTwoAboutBoxes) {
  const HWND seven = StartPlugin(7), nine = StartPlugin(9);
  const auto boxes = [] { return std::ranges::count(FakeHost::TopWindows(), std::string("About"), &TextOf); };
  const auto closeBoth = [&] {
    host_.Close(7);
    EXPECT_TRUE(IsWindow(nine) && boxes() == 1);
    host_.Close(9);
  };
  const auto openSecond = [&] {
    host_.When([&] { return boxes() == 2; }, closeBoth);
    OpenAbout(nine);
  };
  host_.When([&] { return boxes() == 1; }, openSecond);
  OpenAbout(seven);
  EXPECT_EQ(host_.Calls().size(), 4u);
  EXPECT_EQ(boxes(), 0);
  ExpectFreshStart();
}

// Windows that are still open keep the module until the host, loaded anew, closes them.
TEST_F(CloseInside, LoopsOutliveAnUnloadWithoutAClose) {
  void (CloseInside::*const kOpens[])(HWND) = {&CloseInside::OpenAbout, &CloseInside::Menu, &CloseInside::MenuBar,
                                               &CloseInside::MenuOfEdit};
  for (const auto open : kOpens) {
    const HWND window = StartPlugin();
    host_.When(&IsLoopOpen, [&] {
      host_.Unload();
      const HWND box = FakeHost::Find("About");
      box ? static_cast<void>(SendMessageA(box, WM_CLOSE, 0, 0)) : static_cast<void>(EndMenu());
    });
    (this->*open)(window);
    EXPECT_TRUE(PumpUntil([&] { return !host_.IsLoaded() && !IsLoopOpen(); }, 8000));
    ASSERT_TRUE(host_.Load());
    host_.Close(7);
    EXPECT_THAT(Codes(), ElementsAre(0x1509, 0x4000));
    ExpectFreshStart();
  }
}

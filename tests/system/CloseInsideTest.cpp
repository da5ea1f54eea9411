// The host closes the plug-in, or unloads its library, while code of the plug-in is on the stack.
#include <algorithm>

#include "tests/system/PluginFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int kColumnWidth = 100;

class CloseInside : public PluginFixture {
 public:  // tables of functions reach in
  void CloseAndUnload() {
    host_.Close(7);
    host_.Done();
    host_.Unload();
  }
  // The host goes on: a fresh load works, ends and leaves nothing.
  void ExpectFreshStart() {
    host_.PumpFor(20);
    EXPECT_TRUE(WriteTask(false));
    EXPECT_FALSE(host_.HasSeenQuit());
    EXPECT_FALSE(host_.WasLate());
    ASSERT_TRUE(host_.Load());
    const HWND window = StartPlugin();
    EXPECT_EQ(Counts(window), "3 of 3 broadcasts");
    EXPECT_TRUE(IsWindowEnabled(window));
    Enter(window);
    EXPECT_EQ(host_.Calls().size(), 4u);
    CloseAndUnload();
    EXPECT_FALSE(FakeHost::IsModuleInMemory());
    EXPECT_THAT(FakeHost::TopWindows(), IsEmpty());
    ASSERT_TRUE(host_.Load());
  }
  // A menu, a dialog, the system's own dialog or a drop-down list, which is the one window without a caption.
  static bool IsLoopOpen() {
    for (const char* caption : {"About", "Item details", "HFCC options", "New Task", "Delete task", ""}) {
      if (FakeHost::Find(caption)) return true;
    }
    return FakeHost::Find("", "#32768") || !FakeHost::TopWindows("#32770").empty();
  }
  bool IsReached() const { return IsLoopOpen() || GetCapture() || isPlaying_; }
  // One record, due all the time once it is enabled: 9420 kHz, AM.
  bool WriteTask(bool enabled) const {
    const uint32_t record[] = {9420000, 0, 1, 0, 0, 0, 0, 0x7FFFFFFF, 0, 0, 127, enabled};
    return WriteFileBytes(documents_.DataFolder() + "\\tasks.mxt",
                          std::string(reinterpret_cast<const char*>(record), sizeof record));
  }

  void Enter(HWND window) {
    Key(Grid(window), VK_HOME);
    Key(Grid(window), VK_RETURN);
  }
  void DoubleClick(HWND window) { DoubleClickLastRow(Grid(window)); }
  void RestAfterAKey(HWND window) {
    SwitchAutoTuning(window);
    Key(Grid(window), VK_END);
  }
  void RecordButton(HWND window) { PressFirstMediaButton(window); }
  void About(HWND window) { OpenAbout(window); }
  void CloseBox(HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0); }
  void Menu(HWND window) {
    Key(Grid(window), VK_HOME);
    PostMessageA(Grid(window), WM_CONTEXTMENU, 0, -1);
  }
  void MenuBar(HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_KEYMENU, 'f'); }
  void Details(HWND window) {
    Menu(window);
    PostMessageA(Grid(window), WM_CHAR, 'd', 0);  // the menu's loop takes it
  }
  void Columns(HWND window) { Choose(window, "HFCC &settings"); }
  void Export(HWND window) { Choose(window, "&Export items to CSV"); }
  void OpenFile(HWND window) {
    SetFocus(Grid(window));
    for (const WPARAM key : {VK_TAB, VK_RIGHT, VK_SPACE}) KeyWhereTheFocusIs(key);
  }
  void Drag(HWND window, int x, int y) {
    PostMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageA(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x + 20, y - 20));
    host_.PumpFor(0);
  }
  void DragBorder(HWND window) { Drag(Grid(window), kColumnWidth, 8); }
  void DragTitle(HWND window) { Drag(Grid(window), kColumnWidth / 2, 8); }
  void DragSplitter(HWND window) {  // right above the strip that has the counts
    const HWND grid = Grid(window);
    RECT place;
    GetWindowRect(grid, &place);
    POINT below = {place.left + 50, place.bottom + 3};
    ScreenToClient(window, &below);
    Drag(ChildWindowFromPoint(window, below), 5, 3);
  }
  void Play(HWND window) {
    PressFirstMediaButton(window);
    std::vector<uint32_t> block(4 + 44100 * 2);
    std::copy_n(std::begin({44100u, 0u, 1u, 4u * 44100}), 4, block.begin());
    host_.Notify(7, 0xE07, block.data(), 3);
    PressFirstMediaButton(window);
    host_.Clear();
    PressFirstMediaButton(window);
    isPlaying_ = Codes() == std::vector<uint32_t>{0x1101};
  }
  void DragSlider(HWND window) {
    Play(window);
    const HWND slider = GetWindow(GetParent(GetFocus()) == window ? GetFocus() : GetParent(GetFocus()), GW_CHILD);
    Drag(slider, 20, 8);
  }
  void NewTask(HWND window) { Choose(window, "&New task"); }
  void DeleteTask(HWND window) {
    Choose(window, "&View scheduler");
    Key(Grid(FakeHost::Find("Scheduler")), VK_DELETE);
  }
  void Month(HWND window) {
    host_.When([] { return FakeHost::Find("New Task") != nullptr; },
               [&] {
                 PostMessageA(GetWindow(FakeHost::Find("New Task"), GW_CHILD), WM_KEYDOWN, VK_F4, 1);
                 host_.When([] { return FakeHost::Find("") != nullptr; }, action_);
               });
    NewTask(window);
  }
  void DueTask(HWND window) { SendMessageA(window, WM_TIMER, 1, 0); }
  std::function<void()> action_;
  void DropDown(HWND window) {
    const HWND combo = GetWindow(GetWindow(Panel(window), GW_CHILD), GW_HWNDLAST);
    SetFocus(combo);
    Key(combo, VK_F4);
  }

  bool isPlaying_ = false;
};

}  // namespace

TEST_F(CloseInside, EveryPlaceByCloseAndByUnload) {
  const struct {
    const char* name;
    void (CloseInside::*reach)(HWND window);
    uint32_t during;  // this call; 0 is a loop
    std::vector<uint32_t> codes;
  } kPlaces[] = {
      {"frequency", &CloseInside::Enter, 0x800, {0x800, 0x1509, 0x4000}},
      {"mode", &CloseInside::Enter, 0x900, {0x800, 0x900, 0x1509, 0x4000}},
      {"third step", &CloseInside::Enter, 0xF00, {0x800, 0x900, 0xF00, 0x1509, 0x4000}},
      {"last step", &CloseInside::Enter, 0x902, {0x800, 0x900, 0xF00, 0x902, 0x1509, 0x4000}},
      {"mouse", &CloseInside::DoubleClick, 0x900, {0x800, 0x900, 0x1509, 0x4000}},
      {"timer", &CloseInside::RestAfterAKey, 0x900, {0x800, 0x900, 0x1509, 0x4000}},
      {"recording's name", &CloseInside::RecordButton, 0x4002, {0x4002, 0x1509, 0x4000}},
      {"recording", &CloseInside::RecordButton, 0x1101, {0x4002, 0x1101, 0x1509, 0x4000}},
      {"end", &CloseInside::CloseBox, 0x1509, {0x1509, 0x4000}},
      {"last call", &CloseInside::CloseBox, 0x4000, {0x1509, 0x4000}},
      {"box", &CloseInside::About, 0, {0x1509, 0x4000}},
      {"menu", &CloseInside::Menu, 0, {0x1509, 0x4000}},
      {"menu bar", &CloseInside::MenuBar, 0, {0x1509, 0x4000}},
      {"drop-down list", &CloseInside::DropDown, 0, {0x1509, 0x4000}},
      {"details", &CloseInside::Details, 0, {0x1509, 0x4000}},
      {"columns", &CloseInside::Columns, 0, {0x1509, 0x4000}},
      {"export", &CloseInside::Export, 0, {0x1509, 0x4000}},
      {"file to play", &CloseInside::OpenFile, 0, {0x1509, 0x4000}},
      {"border", &CloseInside::DragBorder, 0, {0x1509, 0x4000}},
      {"title", &CloseInside::DragTitle, 0, {0x1509, 0x4000}},
      {"splitter", &CloseInside::DragSplitter, 0, {0x1509, 0x4000}},
      {"playing", &CloseInside::Play, 0, {0x1101, 0x1101, 0x1509, 0x4000}},
      {"slider", &CloseInside::DragSlider, 0, {0x1101, 0x1101, 0x1509, 0x4000}},
      {"new task's frequency", &CloseInside::NewTask, 0x4002, {0x4002, 0x1509, 0x4000}},
      {"task editor", &CloseInside::NewTask, 0, {0x4002, 0x1509, 0x4000}},
      {"its month", &CloseInside::Month, 0, {0x4002, 0x1509, 0x4000}},
      {"question", &CloseInside::DeleteTask, 0, {0x1509, 0x4000}},
      {"due task", &CloseInside::DueTask, 0x900, {0x800, 0x900, 0x1509, 0x4000}},
  };
  for (const auto& place : kPlaces) {
    for (const bool unload : {false, true}) {
      SCOPED_TRACE(std::string(place.name) + (unload ? ", unload" : ""));
      ForgetSettings();
      const std::vector<int32_t> widths(9, kColumnWidth);
      RegSetKeyValueA(HKEY_CURRENT_USER, "Software\\Corvane Communications\\Marlux 3", "GridColumsCountEibi",
                      REG_BINARY, widths.data(), 36);
      ASSERT_TRUE(WriteTask(place.reach == &CloseInside::DueTask));
      isPlaying_ = false;
      const HWND window = StartPlugin();
      action_ = [&] { unload ? CloseAndUnload() : host_.Close(7); };
      place.during == 0 ? host_.When([&] { return IsReached(); }, action_) : host_.During(place.during, action_);
      (this->*place.reach)(window);
      EXPECT_TRUE(host_.PumpUntil([&] { return !IsWindow(window); }, 8000));
      EXPECT_FALSE(IsLoopOpen());
      EXPECT_EQ(GetCapture(), nullptr);
      EXPECT_EQ(Codes(), place.codes);
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
  const auto boxes = [] {
    const std::vector<HWND> windows = FakeHost::TopWindows();
    return std::count_if(windows.begin(), windows.end(), [](HWND window) { return TextOf(window) == "About"; });
  };
  const auto closeBoth = [&] {
    host_.Close(7);
    EXPECT_EQ(boxes(), 1);
    EXPECT_TRUE(IsWindow(nine));
    host_.Close(9);
  };
  host_.When([&] { return boxes() == 1; },
             [&] {
               host_.When([&] { return boxes() == 2; }, closeBoth);
               OpenAbout(nine);
             });
  OpenAbout(seven);
  EXPECT_TRUE(host_.PumpUntil([&] { return host_.Calls().size() == 4 || host_.WasLate(); }, 8000));
  EXPECT_EQ(boxes(), 0);
  ExpectFreshStart();
}

// Windows that are still open keep the module until the host, loaded anew, closes them.
TEST_F(CloseInside, LoopsOutliveAnUnloadWithoutAClose) {
  for (const auto open : {&CloseInside::About, &CloseInside::Menu, &CloseInside::MenuBar}) {
    const HWND window = StartPlugin();
    host_.When(&IsLoopOpen, [&] {
      host_.Unload();
      const HWND box = FakeHost::Find("About");
      SendMessageA(box ? box : window, box ? WM_CLOSE : WM_CANCELMODE, 0, 0);
    });
    (this->*open)(window);
    EXPECT_TRUE(host_.PumpUntil([&] { return !host_.IsLoaded() && !IsLoopOpen(); }, 8000));
    EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_THAT(host_.Calls(), IsEmpty());
    ASSERT_TRUE(host_.Load());
    host_.Close(7);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THAT(Codes(), ElementsAre(0x1509u, 0x4000u));
    ExpectFreshStart();
  }
}

// The menu bar and the grid's menu, as they stand on the screen.
#include "tests/system/PluginFixture.h"

using testing::ElementsAre;

namespace {

constexpr char kMenuClass[] = "#32768";
constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU

class Menus : public PluginFixture {
 protected:
  // What the grid's menu holds, which is opened at this place and ended by this message to its window.
  std::vector<std::string> ContextMenu(HWND window, LPARAM at, UINT message, WPARAM key = 0) {
    std::vector<std::string> texts;
    host_.When([] { return FakeHost::Find("", kMenuClass) != nullptr; },
               [&] {
                 const LRESULT menu = SendMessageA(FakeHost::Find("", kMenuClass), kGetMenu, 0, 0);
                 texts = Texts(reinterpret_cast<HMENU>(menu));
                 PostMessageA(window, message, key, 0);
               });
    PostMessageA(Grid(window), WM_CONTEXTMENU, 0, at);
    EXPECT_TRUE(host_.PumpUntil([&] { return !texts.empty() && !FakeHost::Find("", kMenuClass); }, 8000));
    EXPECT_FALSE(host_.WasLate());
    return texts;
  }
  // "-" is greyed: its window does not exist yet, or there is nothing to choose. "+" is marked.
  static std::vector<std::string> Texts(HMENU menu) {
    std::vector<std::string> texts;
    for (const MenuEntry& entry : Entries(menu)) {
      texts.push_back((entry.isChecked ? "+" : entry.isEnabled ? "" : "-") + entry.text);
    }
    return texts;
  }
};

}  // namespace

TEST_F(Menus, BarHoldsEveryCommandAndMarksUtcTime) {
  const HWND window = StartPlugin();
  for (const char* utc : {"&UTC time", "+&UTC time", "&UTC time"}) {
    EXPECT_THAT(Texts(GetMenu(window)),
                ElementsAre("&File", "&Check for DB updates", "HFCC &databases", "+none.zip", "&Export items to CSV",
                            "E&xit", "&Options", utc, "HFCC &settings", "&Scheduler", "&View scheduler", "&New task",
                            "&Help", "&Help", "&About"));
    Choose(window, "&UTC time");
  }
}

TEST_F(Menus, GridMenuOpensByKeyboardAndMouseAndTunesTheCurrentRow) {
  const HWND window = StartPlugin();
  const HWND grid = Grid(window);
  Key(grid, VK_END);
  RECT place;
  GetWindowRect(grid, &place);
  const LPARAM firstRow = MAKELPARAM(place.left + 30, place.top + 30);
  const auto expected = ElementsAre("Show &details", "&Tune to this frequency", "Start &recording this station",
                                    "&Schedule this station");
  EXPECT_THAT(ContextMenu(window, -1, WM_CANCELMODE), expected);
  EXPECT_TRUE(host_.Calls().empty());
  EXPECT_THAT(ContextMenu(window, -1, WM_CHAR, 't'), expected);
  EXPECT_THAT(ContextMenu(window, firstRow, WM_CHAR, 't'), expected);
  EXPECT_THAT(TunedFrequencies(), ElementsAre(15770500u, 9420000u));
}

TEST_F(Menus, SchedulerOpensAnEditorOnceForANewTaskAndForTheRow) {
  const HWND window = StartPlugin();
  int opened = 0;
  const auto confirm = [&] {
    ++opened;
    PostMessageA(FakeHost::Find("New Task"), WM_KEYDOWN, VK_RETURN, 1);
  };
  const auto isOpen = [] { return FakeHost::Find("New Task") && FakeHost::Find("Scheduler"); };
  host_.When(isOpen, confirm);
  Choose(window, "&New task");
  Key(Grid(window), VK_END);
  host_.When([] { return FakeHost::Find("", kMenuClass) != nullptr; },
             [&] {
               PostMessageA(window, WM_CHAR, 's', 0);
               host_.When(isOpen, confirm);
             });
  PostMessageA(Grid(window), WM_CONTEXTMENU, 0, -1);
  EXPECT_TRUE(host_.PumpUntil([&] { return opened == 2 && !FakeHost::Find("New Task"); }));
  host_.Close(7);
  const std::string file = ReadFileBytes(documents_.DataFolder() + "\\tasks.mxt");
  ASSERT_EQ(file.size(), 2 * 48u);
  EXPECT_EQ(*reinterpret_cast<const uint64_t*>(&file[48]), 15770500u);
}

// The help's file is missing, which is all that its box says.
TEST_F(Menus, HelpAndAboutAreModalBoxes) {
  SetEnvironmentVariableA("ZQN_PLUGIN_PATH", documents_.Path().c_str());
  const HWND window = StartPlugin();
  for (const char* item : {"&Help", "&About"}) {
    bool isShown = false;
    host_.When([&] { return !IsWindowEnabled(window); },
               [&] {
                 isShown = true;
                 PostMessageA(GetLastActivePopup(window), WM_CLOSE, 0, 0);
               });
    Choose(window, item);  // returns when the box has gone
    EXPECT_TRUE(isShown && IsWindowEnabled(window)) << item;
  }
  SetEnvironmentVariableA("ZQN_PLUGIN_PATH", nullptr);
}

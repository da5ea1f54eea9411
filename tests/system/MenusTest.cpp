// The menu bar and the grid's menu, as they stand on the screen.
#include "tests/system/PluginFixture.h"

using testing::ElementsAre;

namespace {

constexpr char kMenuClass[] = "#32768";
constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU

class Menus : public PluginFixture {
 protected:
  // Opens the grid's menu by `open` and hands its entries out when it has closed again.
  std::vector<MenuEntry> EntriesOfContextMenu(HWND window, const std::function<void()>& open) {
    std::vector<MenuEntry> entries;
    host_.When([] { return FakeHost::Find("", kMenuClass) != nullptr; },
               [&] {
                 const LRESULT menu = SendMessageA(FakeHost::Find("", kMenuClass), kGetMenu, 0, 0);
                 entries = Entries(reinterpret_cast<HMENU>(menu));
                 SendMessageA(window, WM_CANCELMODE, 0, 0);
               });
    open();
    EXPECT_TRUE(host_.PumpUntil([&] { return !entries.empty() || host_.WasLate(); }, 8000));
    EXPECT_TRUE(host_.PumpUntil([] { return !FakeHost::Find("", kMenuClass); }));
    EXPECT_FALSE(host_.WasLate());
    return entries;
  }
};

std::vector<std::string> Texts(const std::vector<MenuEntry>& entries) {
  std::vector<std::string> texts;
  for (const MenuEntry& entry : entries) texts.push_back((entry.isEnabled ? "" : "-") + entry.text);
  return texts;
}

bool IsChecked(HWND window, const std::string& text) {
  for (const MenuEntry& entry : Entries(GetMenu(window))) {
    if (entry.text == text) return entry.isChecked;
  }
  ADD_FAILURE() << text;
  return false;
}

}  // namespace

// "-" is greyed: its window does not exist yet, or there is nothing to choose.
TEST_F(Menus, BarHoldsEveryCommand) {
  EXPECT_THAT(Texts(Entries(GetMenu(StartPlugin()))),
              ElementsAre("&File", "-&Check for DB updates", "-HFCC &databases", "-&Export items to CSV", "E&xit",
                          "&Options", "&UTC time", "-HFCC &settings", "&Scheduler", "-&View scheduler", "-&New task",
                          "&Help", "&Help", "&About"));
}

TEST_F(Menus, UtcTimeTogglesItsMark) {
  const HWND window = StartPlugin();
  const bool before = IsChecked(window, "&UTC time");
  for (const bool expected : {!before, before}) {
    Choose(window, "&UTC time");
    EXPECT_EQ(IsChecked(window, "&UTC time"), expected);
  }
}

TEST_F(Menus, GridMenuOpensByKeyboardAndMouse) {
  const HWND window = StartPlugin();
  const HWND grid = Grid(window);
  const auto byKeyboard = [&] { PostMessageA(grid, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(grid), -1); };
  Key(grid, VK_HOME);
  const auto expected = ElementsAre("-Show &details", "&Tune to this frequency", "-Start &recording this station",
                                    "-&Schedule this station");
  EXPECT_THAT(Texts(EntriesOfContextMenu(window, byKeyboard)), expected);
  const auto byMouse = [&] {
    RECT place;
    GetWindowRect(grid, &place);
    const LPARAM at = MAKELPARAM(place.left + 30, place.top + 40);  // the first rows are there
    PostMessageA(grid, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(grid), at);
  };
  EXPECT_THAT(Texts(EntriesOfContextMenu(window, byMouse)), expected);
  EXPECT_TRUE(host_.Calls().empty());
}

TEST_F(Menus, GridMenuTunesTheCurrentRow) {
  const HWND window = StartPlugin();
  const HWND grid = Grid(window);
  Key(grid, VK_END);
  host_.When([] { return FakeHost::Find("", kMenuClass) != nullptr; }, [&] { PostMessageA(window, WM_CHAR, 't', 0); });
  PostMessageA(grid, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(grid), -1);
  EXPECT_TRUE(host_.PumpUntil([&] { return host_.Calls().size() == 4 || host_.WasLate(); }, 8000));
  EXPECT_THAT(TunedFrequencies(), ElementsAre(15770500u));
}

TEST_F(Menus, HelpSaysThatItsFileIsMissing) {
  const HWND window = StartPlugin();
  SetEnvironmentVariableA("ZQN_PLUGIN_PATH", documents_.Path().c_str());
  bool isShown = false;
  host_.When([&] { return !IsWindowEnabled(window); },
             [&] {
               isShown = true;
               for (const HWND box : FakeHost::TopWindows()) {
                 if (box != window && IsWindowVisible(box)) PostMessageA(box, WM_CLOSE, 0, 0);
               }
             });
  Choose(window, "&Help");  // returns when the box has gone
  EXPECT_TRUE(isShown);
  EXPECT_TRUE(IsWindowEnabled(window));
  SetEnvironmentVariableA("ZQN_PLUGIN_PATH", nullptr);
}

TEST_F(Menus, AboutIsAModalBoxThatEnterAndEscapeClose) {
  const HWND window = StartPlugin();
  for (const WPARAM key : {VK_RETURN, VK_ESCAPE, VK_SPACE}) {
    bool wasEnabled = true;
    host_.When([] { return FakeHost::Find("About") != nullptr; },
               [&] {
                 wasEnabled = IsWindowEnabled(window) != FALSE;
                 PostMessageA(FakeHost::Find("About"), WM_KEYDOWN, key, 1);
               });
    OpenAbout(window);
    EXPECT_TRUE(host_.PumpUntil([] { return !FakeHost::Find("About"); })) << key;
    EXPECT_FALSE(wasEnabled) << key;
    EXPECT_TRUE(IsWindowEnabled(window)) << key;
    EXPECT_FALSE(host_.WasLate()) << key;
  }
}

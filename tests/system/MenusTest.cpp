// The menus and what their items open.
#include "tests/system/PluginFixture.h"

using Menus = PluginFixture;

TEST_F(Menus, GridMenuOpensByKeyboardAndMouseAndTunesTheCurrentRow) {
  const HWND window = StartPlugin();
  RECT grid;
  GetWindowRect(Grid(window), &grid);
  Key(Grid(window), VK_END);
  EXPECT_TRUE(host_.Calls().empty());
  ChooseInGrid(window, 't');
  ChooseInGrid(window, 't', MAKELPARAM(grid.left + 30, grid.top + 30));  // the first row
  EXPECT_THAT(TunedFrequencies(), testing::ElementsAre(15770500u, 9420000u));
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
  host_.When([] { return FakeHost::Find("", "#32768") != nullptr; },
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

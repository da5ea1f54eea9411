// What the items of the menus open.
#include "tests/system/PluginFixture.h"

using Menus = PluginFixture;

TEST_F(Menus, TheCurrentRowIsTunedAndScheduledAndANewTaskIsForTheReceiver) {
  const HWND window = StartPlugin();
  Key(Grid(window), VK_END);
  EXPECT_THAT(host_.Calls(), IsEmpty());
  ChooseInGrid(window, 't');
  ASSERT_EQ(host_.Calls().size(), 4u);
  EXPECT_EQ(host_.Calls()[0].a, 15770500u);
  int opened = 0;
  const auto isOpen = [] { return FakeHost::Find("New Task") && FakeHost::Find("Scheduler"); };
  const auto confirm = [&] {
    host_.When(isOpen, [&] { opened += PostMessageA(FakeHost::Find("New Task"), WM_KEYDOWN, VK_RETURN, 1); });
  };
  ChooseInGrid(window, 's', confirm);
  EXPECT_TRUE(PumpUntil([&] { return opened == 1 && !isOpen(); }));
  confirm();
  Choose(window, "&New task");
  EXPECT_TRUE(PumpUntil([&] { return opened == 2 && !isOpen(); }));
  host_.Close(7);
  const std::string file = ReadFileBytes(TaskFile());
  ASSERT_EQ(file.size(), 2 * 48u);
  EXPECT_EQ(*reinterpret_cast<const uint64_t*>(&file[0]), 15770500u);
  EXPECT_EQ(*reinterpret_cast<const uint64_t*>(&file[48]), 6005000u);
}

// Its file is missing, which is all that its box says.
TEST_F(Menus, HelpIsAModalBox) {
  const HWND window = StartPlugin();
  bool isShown = false;
  host_.When([&] { return !IsWindowEnabled(window); },
             [&] { isShown = PostMessageA(GetLastActivePopup(window), WM_CLOSE, 0, 0); });
  Choose(window, "&Help");  // returns when the box has gone
  EXPECT_TRUE(isShown && IsWindowEnabled(window));
}

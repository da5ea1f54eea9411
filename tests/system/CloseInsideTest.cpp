// The host closes the plug-in, or unloads its library, while code of the plug-in is on the stack.
#include <algorithm>

#include "tests/system/PluginFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

enum class Loop { kAbout, kMenu };
constexpr Loop kLoops[] = {Loop::kAbout, Loop::kMenu};

class CloseInside : public PluginFixture {
 protected:
  void CloseAndUnload() {
    host_.Close(7);
    host_.Done();
    host_.Unload();
  }
  // The host goes on: a fresh load works, ends and leaves nothing.
  void ExpectFreshStart() {
    host_.PumpFor(50);
    EXPECT_FALSE(host_.HasSeenQuit());
    EXPECT_FALSE(host_.WasLate());
    ASSERT_TRUE(host_.Load());
    const HWND window = StartPlugin();
    EXPECT_EQ(Counts(window), "3 of 3 broadcasts");
    EXPECT_TRUE(IsWindowEnabled(window));
    Key(Grid(window), VK_HOME);
    Key(Grid(window), VK_RETURN);
    EXPECT_EQ(host_.Calls().size(), 4u);
    CloseAndUnload();
    EXPECT_FALSE(FakeHost::IsModuleInMemory());
    EXPECT_THAT(FakeHost::TopWindows(), IsEmpty());
    ASSERT_TRUE(host_.Load());
  }
  static HWND LoopWindow(Loop loop) {
    return loop == Loop::kMenu ? FakeHost::Find("", "#32768") : FakeHost::Find("About");
  }
  // Does it while the box's or the menu's loop runs, which has to end by that.
  void InsideLoop(Loop loop, HWND window, const std::function<void()>& action) {
    Key(Grid(window), VK_HOME);
    bool isDone = false;
    host_.When([=] { return LoopWindow(loop) != nullptr; },
               [&] {
                 EXPECT_EQ(IsWindowEnabled(window) != FALSE, loop == Loop::kMenu);
                 action();
                 isDone = true;
               });
    if (loop == Loop::kMenu) {
      PostMessageA(Grid(window), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Grid(window)), -1);
    } else {
      OpenAbout(window);
    }
    EXPECT_TRUE(host_.PumpUntil([&] { return (isDone && !LoopWindow(loop)) || host_.WasLate(); }, 8000));
  }
  void ExpectFarewellOf(HWND window) {
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THAT(Codes(), ElementsAre(0x1509u, 0x4000u));
  }
  // The first combo box with its list open; the list.
  HWND OpenDropDown(HWND window) {
    HWND combo = GetWindow(Panel(window), GW_CHILD);
    char className[64] = "";
    for (; combo; combo = GetWindow(combo, GW_HWNDNEXT)) {
      GetClassNameA(combo, className, sizeof className);
      if (std::string(className).starts_with(FakeHost::kClassPrefix)) break;
    }
    SetFocus(combo);
    Key(combo, VK_F4);
    const HWND list = FakeHost::Find("");
    EXPECT_NE(list, nullptr);
    return list;
  }
};

}  // namespace

TEST_F(CloseInside, EachStepOfTuning) {
  const std::vector<uint32_t> kSteps = {0x800, 0x900, 0xF00, 0x902};
  for (size_t step = 0; step < kSteps.size(); ++step) {
    SCOPED_TRACE(kSteps[step]);
    const HWND window = StartPlugin();
    Key(Grid(window), VK_HOME);
    host_.During(kSteps[step], [&] { host_.Close(7); });
    Key(Grid(window), VK_RETURN);
    std::vector<uint32_t> expected(kSteps.begin(), kSteps.begin() + static_cast<int>(step) + 1);
    expected.insert(expected.end(), {0x1509, 0x4000});
    EXPECT_EQ(Codes(), expected);
    EXPECT_FALSE(IsWindow(window));
  }
  ExpectFreshStart();
}

TEST_F(CloseInside, TuningByMouseAndByTimer) {
  HWND window = StartPlugin();
  host_.During(0x900, [&] { host_.Close(7); });
  EXPECT_EQ(DoubleClickLastRow(Grid(window)), 15770500u);
  EXPECT_THAT(Codes(), ElementsAre(0x800u, 0x900u, 0x1509u, 0x4000u));
  window = StartPlugin();
  SwitchAutoTuning(window);
  host_.During(0x900, [&] { host_.Close(7); });
  Key(Grid(window), VK_END);
  EXPECT_TRUE(host_.PumpUntil([&] { return !IsWindow(window); }));
  EXPECT_THAT(Codes(), ElementsAre(0x800u, 0x900u, 0x1509u, 0x4000u));
  ExpectFreshStart();
}

TEST_F(CloseInside, TuningWithTheLibraryGoing) {
  const HWND window = StartPlugin();
  Key(Grid(window), VK_HOME);
  host_.During(0xF00, [this] { CloseAndUnload(); });
  Key(Grid(window), VK_RETURN);
  EXPECT_THAT(Codes(), ElementsAre(0x800u, 0x900u, 0xF00u, 0x1509u, 0x4000u));
  ExpectFreshStart();
}

TEST_F(CloseInside, ASecondInstanceGoesWithTheFirst) {
  const HWND seven = StartPlugin(7), nine = StartPlugin(9);
  host_.During(0x1509, [&] { host_.Close(9); });
  host_.Close(7);
  EXPECT_FALSE(IsWindow(seven));
  EXPECT_FALSE(IsWindow(nine));
  EXPECT_THAT(Codes(), ElementsAre(0x1509u, 0x1509u, 0x4000u, 0x4000u));
  ExpectFreshStart();
}

TEST_F(CloseInside, LoopsOfBoxAndMenu) {
  for (const Loop loop : kLoops) {
    for (const bool unload : {false, true}) {
      SCOPED_TRACE(std::string(loop == Loop::kMenu ? "menu" : "box") + (unload ? ", unload" : ""));
      const HWND window = StartPlugin();
      InsideLoop(loop, window, [&] { unload ? CloseAndUnload() : host_.Close(7); });
      ExpectFarewellOf(window);
      ExpectFreshStart();
    }
  }
}

TEST_F(CloseInside, LoopWithASecondInstanceThatStays) {
  const HWND other = StartPlugin(9), window = StartPlugin(7);
  InsideLoop(Loop::kAbout, window, [this] { host_.Close(7); });
  ExpectFarewellOf(window);
  EXPECT_TRUE(IsWindowEnabled(other));
  EXPECT_EQ(Counts(other), "3 of 3 broadcasts");
  host_.Close(9);
  ExpectFreshStart();
}

// The loop of the second box runs inside that of the first one, which goes first.
TEST_F(CloseInside, OuterOfTwoAboutBoxes) {
  const HWND seven = StartPlugin(7), nine = StartPlugin(9);
  const auto boxes = [] {
    const std::vector<HWND> windows = FakeHost::TopWindows();
    return std::count_if(windows.begin(), windows.end(), [](HWND window) { return TextOf(window) == "About"; });
  };
  host_.When([&] { return boxes() == 1; },
             [&] {
               host_.When([&] { return boxes() == 2; },
                          [&] {
                            host_.Close(7);
                            EXPECT_EQ(boxes(), 1);
                            host_.Close(9);
                          });
               OpenAbout(nine);
             });
  OpenAbout(seven);
  EXPECT_TRUE(host_.PumpUntil([&] { return host_.Calls().size() == 4 || host_.WasLate(); }, 8000));
  EXPECT_EQ(boxes(), 0);
  ExpectFreshStart();
}

// Windows that are still open keep the module until the host, loaded anew, closes them.
TEST_F(CloseInside, LoopsOutliveAnUnloadWithoutAClose) {
  for (const Loop loop : kLoops) {
    SCOPED_TRACE(loop == Loop::kMenu ? "menu" : "box");
    const HWND window = StartPlugin();
    InsideLoop(loop, window, [&] {
      host_.Unload();
      SendMessageA(loop == Loop::kMenu ? window : LoopWindow(loop), loop == Loop::kMenu ? WM_CANCELMODE : WM_CLOSE, 0,
                   0);
    });
    host_.PumpFor(20);
    EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_THAT(host_.Calls(), IsEmpty());
    ASSERT_TRUE(host_.Load());
    host_.Close(7);
    ExpectFarewellOf(window);
    ExpectFreshStart();
  }
}

TEST_F(CloseInside, DropDownList) {
  const HWND window = StartPlugin();
  const HWND list = OpenDropDown(window);
  host_.Close(7);
  EXPECT_FALSE(IsWindow(list));
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(GetCapture(), nullptr);
  ExpectFreshStart();
}

TEST_F(CloseInside, DropDownListWithTheLibraryGoing) {
  const HWND window = StartPlugin();
  const HWND list = OpenDropDown(window);
  CloseAndUnload();
  EXPECT_FALSE(IsWindow(list));
  EXPECT_FALSE(FakeHost::IsModuleInMemory());
  ExpectFreshStart();
}

TEST_F(CloseInside, UnloadInsideTheLastCall) {
  const HWND window = StartPlugin();
  host_.During(0x4000, [this] {
    host_.Done();
    host_.Unload();
  });
  PostMessageA(window, WM_CLOSE, 0, 0);
  EXPECT_TRUE(host_.PumpUntil([&] { return !IsWindow(window); }));
  ExpectFreshStart();
}

TEST_F(CloseInside, UnloadOfALibraryWithOpenWindows) {
  const HWND seven = StartPlugin(7), nine = StartPlugin(9);
  host_.Unload();
  EXPECT_FALSE(IsWindow(seven));
  EXPECT_FALSE(IsWindow(nine));
  EXPECT_FALSE(FakeHost::IsModuleInMemory());
  ExpectFreshStart();
}

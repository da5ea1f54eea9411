// Loading, starting, routing and closing, as the host sees them.
#include "tests/support/ProcessCounts.h"
#include "tests/system/PluginFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct InstanceLife : PluginFixture {
  void ByHost(HWND) { host_.Close(7); }
  void ByCloseBox(HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0); }
  void ByMessage(HWND window) { SendMessageA(window, WM_CLOSE, 0, 0); }
  void ByAProgramThatEndsOthers(HWND) {  // every window is told, hidden ones, too
    for (const HWND any : FakeHost::TopWindows()) SendMessageA(any, WM_CLOSE, 0, 0);
  }
  void ByMenu(HWND window) { Choose(window, "E&xit"); }
};

std::vector<HostCall> Farewell(uint32_t instance) {
  return {{instance, 0x1509, 0xFFFFFFFF, 0, "0"}, {instance, 0x4000, 0, 9, "Marlux 3"}};
}

}  // namespace

TEST_F(InstanceLife, InitFillsTheNameAndNothingBehindIt) {
  for (const uint32_t size : {0u, 4u, 8u, 9u, 20u}) {
    std::string name(24, '#');
    host_.Init(name.data(), size);
    std::string expected = std::string("Marlux 3").substr(0, size);
    expected.resize(size, '\0');
    EXPECT_EQ(name, expected + std::string(24 - size, '#')) << size;
  }
}

TEST_F(InstanceLife, ToldToTheHostFromStartToEnd) {
  for (const auto close : {&InstanceLife::ByHost, &InstanceLife::ByCloseBox, &InstanceLife::ByMessage,
                           &InstanceLife::ByMenu, &InstanceLife::ByAProgramThatEndsOthers}) {
    host_.Clear();
    const uint32_t instance = host_.Start(7);
    EXPECT_THAT(host_.Calls(), ElementsAre(HostCall{0, 0x1509, 3, 0, "0"}));
    host_.Clear();
    (this->*close)(host_.WindowOf(7));
    EXPECT_TRUE(host_.PumpUntil([&] { return !IsWindow(host_.WindowOf(7)); }));
    host_.PumpFor(50);
    EXPECT_EQ(host_.Calls(), Farewell(instance));
    host_.Notify(7, 0x800);
    host_.Close(7);
    host_.Done();
    EXPECT_EQ(host_.Calls().size(), 2u);
  }
  EXPECT_FALSE(host_.HasSeenQuit());
}

TEST_F(InstanceLife, TwoInstancesAreReachedByTheirHandles) {
  for (const uint32_t first : {7u, 9u}) {
    std::map<uint32_t, uint32_t> instances = {{7, host_.Start(7)}, {9, host_.Start(9)}};
    for (const uint32_t handle : {first, 16 - first}) {
      host_.Clear();
      host_.Close(8);
      host_.Notify(8, 0x4005, HostBlockOfReceiver().data());
      Key(Grid(host_.WindowOf(handle)), VK_HOME);
      EXPECT_THAT(host_.Calls(), IsEmpty());
      Key(Grid(host_.WindowOf(handle)), VK_RETURN);
      const uint32_t to = instances[handle];
      EXPECT_THAT(host_.Calls(), ElementsAre(HostCall{to, 0x800, 9420000, 0, "0"}, HostCall{to, 0x900, 1, 0, "0"},
                                             HostCall{to, 0xF00, 0, 0, "0"}, HostCall{to, 0x902, 5000, 0, "0"}));
      host_.Clear();
      host_.Close(handle);
      host_.Close(handle);
      EXPECT_EQ(host_.Calls(), Farewell(instances[handle]));
      EXPECT_FALSE(IsWindow(host_.WindowOf(handle)));
    }
  }
}

TEST_F(InstanceLife, SenselessHostBlocksAreSurvived) {
  std::vector<uint32_t> outside = HostBlockOfReceiver();
  for (const uint32_t offset : {172u, 224u, 236u, 384u}) outside[offset / 4] = offset % 8 ? 1 : 0xFFFFFFF0;
  outside[228 / 4] = 0x7FFFFFFF;
  std::vector<uint32_t> blocks[] = {{0}, {3}, {8, 0x31313131}, outside};
  for (std::vector<uint32_t>& block : blocks) {
    EXPECT_NE(host_.Start(7, block.data()), 0u);
    host_.Notify(7, 0x4005, block.data());
    block.assign(block.size(), 0xDDDDDDDD);  // the plug-in must live on its own copy
    host_.Notify(7, 0x4005, nullptr);
    EXPECT_EQ(Counts(host_.WindowOf(7)), "3 of 3 broadcasts");
    host_.Close(7);
  }
  EXPECT_NE(host_.Start(7, nullptr), 0u);
}

TEST_F(InstanceLife, RoundsLeaveNothingBehind) {
  char className[64] = "";
  WNDCLASSEXA windowClass = {};
  windowClass.cbSize = sizeof windowClass;
  size_t helpers = 0;
  ProcessCounts before = {};
  for (int round = 0; round < 220; ++round) {
    if (round == 20) before = ProcessCounts::Now();  // what is made once and kept is there by now
    const HWND window = StartPlugin();
    GetClassNameA(window, className, sizeof className);
    if (round % 4 == 0) Choose(window, "&View scheduler");
    if (round % 4 == 1) PressFirstMediaButton(window);  // records
    host_.Close(7);
    host_.PumpFor(0);
    const size_t left = FakeHost::TopWindows().size();
    if (round == 0) helpers = left;
    ASSERT_EQ(left, helpers) << round;
  }
  // Less than one thing in two rounds.
  const ProcessCounts after = ProcessCounts::Now();
  std::cout << before << " became " << after << "\n";
  EXPECT_LE(after.gdiObjects, before.gdiObjects + 5);
  EXPECT_LE(after.handles, before.handles + 5);
  EXPECT_LE(after.userObjects, before.userObjects + 40) << "other programs' are counted, too";
  EXPECT_LE(after.heapBlocks, before.heapBlocks + 40);
  EXPECT_LE(after.heapBytes, before.heapBytes + 40000);
  const HMODULE module = GetModuleHandleA("marlux3.dll");
  EXPECT_TRUE(GetClassInfoExA(module, className, &windowClass));
  for (int round = 0; round < 20; ++round) {
    host_.Done();
    host_.Unload();
    ASSERT_FALSE(FakeHost::IsModuleInMemory()) << round;
    ASSERT_THAT(FakeHost::TopWindows(), IsEmpty()) << round;
    ASSERT_FALSE(GetClassInfoExA(module, className, &windowClass));
    ASSERT_TRUE(host_.Load());
    StartPlugin();
    if (round % 2 == 0) host_.Close(7);  // else the unload has to take the window along
  }
}

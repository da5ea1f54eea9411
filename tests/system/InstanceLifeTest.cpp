// Loading, starting, routing and closing, as the host sees them.
#include <thread>

#include "tests/support/ProcessCounts.h"
#include "tests/system/PluginFixture.h"

using InstanceLife = PluginFixture;

static std::vector<HostCall> Farewell(uint32_t instance) {
  return {{instance, 0x1509, 0xFFFFFFFF, 0, "0"}, {instance, 0x4000, 0, 9, "Marlux 3"}};
}

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
  const std::function<void(HWND)> kEnds[] = {
      [&](HWND) { host_.Close(7); },
      [](HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0); },
      [&](HWND window) { Choose(window, "E&xit"); },
      [](HWND) {  // a program that ends others tells every window, hidden ones, too
        for (const HWND any : FakeHost::TopWindows()) SendMessageA(any, WM_CLOSE, 0, 0);
      },
  };
  for (const auto& end : kEnds) {
    host_.Clear();
    const uint32_t instance = host_.Start(7);
    EXPECT_THAT(host_.Calls(), ElementsAre(HostCall{0, 0x1509, 3, 0, "0"}));
    host_.Clear();
    end(host_.WindowOf(7));
    EXPECT_TRUE(PumpUntil([&] { return !IsWindow(host_.WindowOf(7)); }));
    PumpFor(50);
    EXPECT_EQ(host_.Calls(), Farewell(instance));
    host_.Notify(7, 0x800);
    host_.Close(7);
    host_.Done();
    EXPECT_EQ(host_.Calls().size(), 2u);
  }
  EXPECT_FALSE(hasSeenQuit);
}

TEST_F(InstanceLife, TwoInstancesAreReachedByTheirHandles) {
  host_.Start(9);  // an older one of the same handle
  const std::map<uint32_t, uint32_t> instances = {{7, host_.Start(7)}, {9, host_.Start(9)}};
  for (const auto& [handle, instance] : instances) {
    host_.Clear();
    host_.Close(8);
    host_.Notify(8, 0x4005, HostBlockOfReceiver().data());
    Key(Grid(host_.WindowOf(handle)), VK_HOME);
    EXPECT_THAT(host_.Calls(), IsEmpty());
    Key(Grid(host_.WindowOf(handle)), VK_RETURN);
    EXPECT_THAT(host_.Calls(),
                ElementsAre(HostCall{instance, 0x800, 9420000, 0, "0"}, HostCall{instance, 0x900, 1, 0, "0"},
                            HostCall{instance, 0xF00, 0, 0, "0"}, HostCall{instance, 0x902, 5000, 0, "0"}));
    host_.Clear();
    host_.Close(handle);
    EXPECT_EQ(host_.Calls(), Farewell(instance));
    EXPECT_FALSE(IsWindow(host_.WindowOf(handle)));
  }
}

TEST_F(InstanceLife, RoundsLeaveNothingBehind) {
  ProcessCounts before = {};
  for (int round = 0; round < 220; ++round) {
    if (round == 20) before = ProcessCounts::Now();  // what is made once and kept is there by now
    const HWND window = StartPlugin();
    if (round % 4 == 0) Choose(window, "&View scheduler");
    if (round % 4 == 1) PressFirstMediaButton(window);  // records
    host_.Close(7);
    PumpFor(0);
  }
  // Less than one thing in two rounds.
  const ProcessCounts after = ProcessCounts::Now();
  EXPECT_LE(after.gdiObjects, before.gdiObjects + 5);
  EXPECT_LE(after.handles, before.handles + 5);
  EXPECT_LE(after.userObjects, before.userObjects + 40) << "other programs' are counted, too";
  EXPECT_LE(after.heapBlocks, before.heapBlocks + 40);
  EXPECT_LE(after.heapBytes, before.heapBytes + 40000);
}

TEST(Unloading, ByAnotherThreadLeavesNoWindowThatLeadsIntoTheModule) {
  const FreshDocumentsFolder documents;
  const HMODULE module = LoadLibraryA(FakeHost::kModulePath);
  {
    FakeHost host;
    host.Start(7);
    host.Close(7);
  }
  std::thread([=] { FreeLibrary(module); }).join();
  EXPECT_EQ(GetModuleHandleA("marlux3.dll"), nullptr);
  PumpFor(300);  // the timers of the hidden windows, and their end
  EXPECT_THAT(FakeHost::TopWindows(), IsEmpty());
}

TEST(SharedRuntime, OfAHostOfTheSameCompilerLeavesTheModuleItsExceptions) {
  std::vector<HMODULE> files;
  for (const char* path : {MARLUX_SHARED_RUNTIME}) ASSERT_TRUE(files.emplace_back(LoadLibraryA(path))) << path;
  const FreshDocumentsFolder documents;
  EXPECT_NE(FakeHost().Start(7), 0u) << "the module throws once when it is loaded";
  for (const HMODULE file : files) FreeLibrary(file);
}

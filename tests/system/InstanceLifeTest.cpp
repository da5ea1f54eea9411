// Loading, starting, routing and closing, as the host sees them.
#include <cstring>

#include "tests/system/PluginFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class InstanceLife : public PluginFixture {};

std::vector<HostCall> Farewell(uint32_t instance) {
  return {{instance, 0x1509, 0xFFFFFFFF, 0, "0"}, {instance, 0x4000, 0, 9, "Marlux 3"}};
}

// Memory that ends where the readable memory ends: reading one byte too many stops the program.
class EndOfMemory {
 public:
  explicit EndOfMemory(const std::vector<uint32_t>& words) {
    pages_ = static_cast<uint8_t*>(VirtualAlloc(nullptr, 2 * kPage, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD before;
    VirtualProtect(pages_ + kPage, kPage, PAGE_NOACCESS, &before);
    start_ = pages_ + kPage - words.size() * 4;
    std::memcpy(start_, words.data(), words.size() * 4);
  }
  EndOfMemory(const EndOfMemory&) = delete;
  EndOfMemory& operator=(const EndOfMemory&) = delete;
  ~EndOfMemory() { VirtualFree(pages_, 0, MEM_RELEASE); }
  [[nodiscard]] const void* Start() const { return start_; }

 private:
  static constexpr uint32_t kPage = 4096;
  uint8_t* pages_;
  uint8_t* start_;
};

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
  struct {
    const char* name;
    void (*close)(FakeHost& host, HWND window);
  } const kWays[] = {
      {"host", [](FakeHost& host, HWND) { host.Close(7); }},
      {"host, once more inside the call that tells it",
       [](FakeHost& host, HWND) {
         host.During(0x1509, [&host] { host.Close(7); });
         host.Close(7);
       }},
      {"close box", [](FakeHost&, HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0); }},
      {"message", [](FakeHost&, HWND window) { SendMessageA(window, WM_CLOSE, 0, 0); }},
  };
  for (const auto& way : kWays) {
    SCOPED_TRACE(way.name);
    host_.Clear();
    const uint32_t instance = host_.Start(7);
    EXPECT_THAT(host_.Calls(), ElementsAre(HostCall{0, 0x1509, 3, 0, "0"}));
    host_.Clear();
    way.close(host_, host_.WindowOf(7));
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

TEST_F(InstanceLife, ExitLeavesTheHostsLoopRunning) {
  const HWND window = StartPlugin();
  Choose(window, "E&xit");
  EXPECT_TRUE(host_.PumpUntil([&] { return !IsWindow(window); }));
  EXPECT_THAT(Codes(), ElementsAre(0x1509u, 0x4000u));
  MSG message;
  PostMessageA(nullptr, WM_APP, 1, 2);
  EXPECT_GT(GetMessageA(&message, nullptr, WM_APP, WM_APP), 0);
  host_.PumpFor(50);
  EXPECT_FALSE(host_.HasSeenQuit());
}

TEST_F(InstanceLife, TwoInstancesAreReachedByTheirHandles) {
  for (const uint32_t first : {7u, 9u}) {
    const uint32_t second = 16 - first;
    const uint32_t seven = host_.Start(7), nine = host_.Start(9);
    EXPECT_NE(seven, nine);
    ASSERT_NE(host_.WindowOf(7), host_.WindowOf(9));
    host_.Clear();
    host_.Close(8);
    host_.Notify(8, 0x4005, HostBlockOfReceiver().data());
    EXPECT_THAT(host_.Calls(), IsEmpty());
    host_.Close(first);
    EXPECT_EQ(host_.Calls(), Farewell(first == 7 ? seven : nine));
    EXPECT_FALSE(IsWindow(host_.WindowOf(first)));
    EXPECT_TRUE(IsWindow(host_.WindowOf(second)));
    host_.Clear();
    host_.Close(first);
    EXPECT_THAT(host_.Calls(), IsEmpty());
    host_.Close(second);
    EXPECT_EQ(host_.Calls(), Farewell(first == 7 ? nine : seven));
  }
}

TEST_F(InstanceLife, EachInstanceTunesInItsOwnName) {
  const uint32_t seven = host_.Start(7), nine = host_.Start(9);
  for (const auto& [handle, instance] : {std::pair{7u, seven}, std::pair{9u, nine}}) {
    host_.Clear();
    Key(Grid(host_.WindowOf(handle)), VK_HOME);
    Key(Grid(host_.WindowOf(handle)), VK_RETURN);
    ASSERT_EQ(host_.Calls().size(), 4u) << handle;
    for (const HostCall& call : host_.Calls()) EXPECT_EQ(call.instance, instance);
  }
}

TEST_F(InstanceLife, SenselessHostBlocksAreSurvived) {
  std::vector<uint32_t> outside = HostBlockOfReceiver();
  for (const uint32_t offset : {172u, 224u, 236u, 384u}) outside[offset / 4] = offset % 8 ? 1 : 0xFFFFFFF0;
  outside[228 / 4] = 0x7FFFFFFF;
  const std::vector<uint32_t> kBlocks[] = {{0}, {3}, {4}, {8, 0x31313131}, outside};
  for (const auto& words : kBlocks) {
    SCOPED_TRACE(words[0]);
    {
      const EndOfMemory block(words);
      EXPECT_NE(host_.Start(7, block.Start()), 0u);
      EXPECT_NE(host_.Start(9), 0u);
      host_.Notify(9, 0x4005, block.Start());
    }  // the plug-in must live on its own copy
    host_.Notify(9, 0x4005, HostBlockOfReceiver().data());
    host_.Notify(9, 0x4005, nullptr);
    host_.PumpFor(0);
    EXPECT_EQ(Counts(host_.WindowOf(7)), "3 of 3 broadcasts");
    EXPECT_EQ(Counts(host_.WindowOf(9)), "3 of 3 broadcasts");
    host_.Close(7);
    host_.Close(9);
  }
  EXPECT_NE(host_.Start(7, nullptr), 0u);
  EXPECT_EQ(Counts(host_.WindowOf(7)), "3 of 3 broadcasts");
}

TEST_F(InstanceLife, RoundsLeaveNothingBehind) {
  char className[64] = "";
  WNDCLASSEXA windowClass = {};
  windowClass.cbSize = sizeof windowClass;
  size_t helpers = 0;
  for (int round = 0; round < 20; ++round) {
    const HWND window = StartPlugin();
    GetClassNameA(window, className, sizeof className);
    host_.Close(7);
    host_.PumpFor(0);
    const size_t left = FakeHost::TopWindows().size();
    if (round == 0) helpers = left;
    ASSERT_EQ(left, helpers) << round;
  }
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

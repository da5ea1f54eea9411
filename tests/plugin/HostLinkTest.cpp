#include "plugin/HostLink.h"

#include "tests/support/Test.h"

// What the host is told at the start, at tuning and at the end, and that it may end the plug-in inside each call, is
// tested with the whole plug-in. Here is what a host can hardly be made to do.
namespace {

std::vector<uint32_t> codes;
uint32_t answer = 0;
std::function<void()> inside;

uint32_t __stdcall Host(uint32_t, uint32_t code, uint32_t, uint32_t, uint32_t) {
  codes.push_back(code);
  if (inside) inside();
  return answer;
}

struct HostLinkTest : testing::Test {
  HostLinkTest() {
    codes.clear();
    inside = nullptr;
    link_.Connect(Host, 77);
  }
  HostLink link_;
};

}  // namespace

TEST_F(HostLinkTest, AfterTheFarewellNothingReachesTheHost) {
  inside = [this] {
    if (codes.back() == 0x4000) link_.TellMediaState(false);  // what a host may cause by ending us inside the call
  };
  link_.TellClosed();
  link_.Tune(1, 1);
  EXPECT_EQ(link_.CurrentFrequencyRaw(), 0u);
  link_.TellStarted();
  link_.TellClosed();
  EXPECT_THAT(codes, testing::ElementsAre(0x1509, 0x4000));
}

TEST_F(HostLinkTest, ANestedTuneHasTheLastWord) {
  inside = [this] {
    if (codes.size() == 1) link_.Tune(2, 1);
  };
  link_.Tune(1, 1);
  EXPECT_EQ(codes.size(), 5u);
}

TEST_F(HostLinkTest, TheOuterTuneNoticesAnEndInsideANestedOne) {
  inside = [this] {
    const size_t count = codes.size();
    if (count == 1) link_.Tune(2, 1);
    if (count == 3) link_.Disconnect();
  };
  link_.Tune(1, 1);
  EXPECT_EQ(codes.size(), 3u);
}

TEST_F(HostLinkTest, DecodesTheCurrentFrequency) {
  std::vector<int64_t> decoded;
  for (const uint32_t raw : {0x64u, 0x80000064u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    answer = raw;
    decoded.push_back(link_.CurrentFrequency());
  }
  EXPECT_THAT(decoded, testing::ElementsAre(100, 1000, 2147483647, 0, 21474836470));
}

#include "plugin/HostLink.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <vector>

using testing::ElementsAre;

namespace {

using Arguments = std::vector<uint32_t>;

// The host's side: what it was told, what it answers, what it does inside a call.
struct Host {
  std::vector<Arguments> calls;
  uint32_t answer = 0;
  std::function<void(uint32_t code)> inside;
} host;

uint32_t __stdcall HostFunction(uint32_t instance, uint32_t code, uint32_t a, uint32_t b, uint32_t c) {
  host.calls.push_back({instance, code, a, b, c});
  if (host.inside) host.inside(code);
  return host.answer;
}

class HostLinkTest : public testing::Test {
 protected:
  HostLinkTest() {
    host = {};
    link_->Connect(HostFunction, 77);
  }
  std::unique_ptr<HostLink> link_ = std::make_unique<HostLink>();
};

}  // namespace

TEST_F(HostLinkTest, TunesInFourStepsAndTellsStates) {
  link_->TellStarted();
  EXPECT_TRUE(link_->Tune(9420000, 5));
  link_->TellMediaState(true);
  EXPECT_THAT(host.calls, ElementsAre(Arguments{0, 0x1509, 3, 0, 0}, Arguments{77, 0x800, 9420000, 0, 0},
                                      Arguments{77, 0x900, 5, 0, 0}, Arguments{77, 0xF00, 0, 0, 0},
                                      Arguments{77, 0x902, 5000, 0, 0}, Arguments{77, 0x1101, 1, 0, 0}));
}

TEST_F(HostLinkTest, AfterTheFarewellNothingReachesTheHost) {
  host.inside = [this](uint32_t code) {
    if (code == 0x4000) link_->TellMediaState(false);  // what a host may cause by ending us inside the call
  };
  link_->TellClosed();
  EXPECT_FALSE(link_->Tune(1, 1));
  EXPECT_EQ(link_->CurrentFrequencyRaw(), 0u);
  link_->TellStarted();
  link_->TellClosed();
  ASSERT_EQ(host.calls.size(), 2u);
  EXPECT_EQ(host.calls[0], (Arguments{77, 0x1509, 0xFFFFFFFF, 0, 0}));
  EXPECT_THAT(host.calls[1], ElementsAre(77, 0x4000, 0, 9, testing::_));
  EXPECT_STREQ(reinterpret_cast<const char*>(host.calls[1][4]), "Marlux 3");
}

TEST_F(HostLinkTest, TheOuterTuneNoticesAnEndInsideANestedOne) {
  host.inside = [this](uint32_t) {
    const size_t count = host.calls.size();
    EXPECT_FALSE(count == 1 && link_->Tune(2, 1));
    if (count == 3) link_.reset();
  };
  EXPECT_FALSE(link_->Tune(1, 1));
  EXPECT_EQ(host.calls.size(), 3u);
}

TEST_F(HostLinkTest, DecodesTheCurrentFrequency) {
  std::vector<int64_t> decoded;
  for (const uint32_t raw : {0x64u, 0x80000064u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    host.answer = raw;
    decoded.push_back(link_->CurrentFrequency());
  }
  EXPECT_THAT(decoded, ElementsAre(100, 1000, 2147483647, 0, 21474836470));
  EXPECT_EQ(host.calls.back(), (Arguments{77, 0x4002, 0x800, 0, 0}));
}

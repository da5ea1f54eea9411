#include "plugin/HostLink.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

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
  link_->TellMediaState(false);
  EXPECT_THAT(host.calls, ElementsAre(Arguments{0, 0x1509, 3, 0, 0}, Arguments{77, 0x800, 9420000, 0, 0},
                                      Arguments{77, 0x900, 5, 0, 0}, Arguments{77, 0xF00, 0, 0, 0},
                                      Arguments{77, 0x902, 5000, 0, 0}, Arguments{77, 0x1101, 1, 0, 0},
                                      Arguments{77, 0x1101, 0, 0, 0}));
}

TEST_F(HostLinkTest, AfterTheFarewellNothingReachesTheHost) {
  host.inside = [this](uint32_t code) {
    if (code == 0x4000) link_->TellMediaState(false);  // what a host may cause by ending us inside the call
  };
  link_->TellClosed();
  EXPECT_FALSE(link_->Tune(1, 1));
  link_->TellStarted();
  link_->TellClosed();
  EXPECT_EQ(link_->CurrentFrequency(), 0);
  ASSERT_EQ(host.calls.size(), 2u);
  EXPECT_EQ(host.calls[0], (Arguments{77, 0x1509, 0xFFFFFFFF, 0, 0}));
  EXPECT_THAT(host.calls[1], ElementsAre(77, 0x4000, 0, 9, testing::_));
  EXPECT_STREQ(reinterpret_cast<const char*>(host.calls[1][4]), "Marlux 3");
}

TEST_F(HostLinkTest, ALinkThatDiesInsideAStepSendsNoFurtherOne) {
  host.inside = [this](uint32_t code) {
    if (code == 0x900) link_.reset();
  };
  EXPECT_FALSE(link_->Tune(6005000, 1));
  EXPECT_EQ(host.calls.size(), 2u);
}

TEST_F(HostLinkTest, TheOuterTuneNoticesAnEndInsideANestedOne) {
  host.inside = [this](uint32_t) {
    const size_t count = host.calls.size();
    if (count == 1) {
      EXPECT_FALSE(link_->Tune(2, 1));
    }
    if (count == 3) link_.reset();
  };
  EXPECT_FALSE(link_->Tune(1, 1));
  EXPECT_EQ(host.calls.size(), 3u);
}

TEST_F(HostLinkTest, WithoutACallbackCallsAreDropped) {
  link_->Connect(nullptr, 77);
  link_->TellStarted();
  link_->TellClosed();
  EXPECT_FALSE(link_->Tune(1, 1));
  EXPECT_EQ(link_->CurrentFrequencyRaw(), 0u);
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(HostLinkTest, DecodesTheCurrentFrequency) {
  struct {
    uint32_t raw;
    int64_t hz;
  } const kCases[] = {
      {0, 0}, {0x64, 100}, {0x80000064, 1000}, {0x7FFFFFFF, 2147483647}, {0x80000000, 0}, {0xFFFFFFFF, 21474836470}};
  for (const auto& row : kCases) {
    host.answer = row.raw;
    EXPECT_EQ(link_->CurrentFrequency(), row.hz);
    EXPECT_EQ(host.calls.back(), (Arguments{77, 0x4002, 0x800, 0, 0}));
  }
}

TEST(HostLink, ModesOfModulations) {
  const std::pair<char, uint32_t> kModes[] = {{'N', 9}, {'T', 5}, {'D', 1}, {'n', 1}, {'t', 1}, {'\0', 1}};
  for (const auto& [modulation, mode] : kModes) EXPECT_EQ(ModeOfModulation(modulation), mode) << modulation;
}

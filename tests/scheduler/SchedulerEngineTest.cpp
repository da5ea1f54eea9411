#include "scheduler/SchedulerEngine.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <utility>
#include <vector>

#include "foundation/Clock.h"
#include "tests/support/FreshDocumentsFolder.h"
#include "toolkit/TmyApplication.h"

using testing::ElementsAre;

static uint32_t allocations = 0;  // of the whole program

[[gnu::noinline]] void* operator new(size_t bytes) {
  ++allocations;
  if (void* block = std::malloc(bytes)) return block;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
  std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, size_t) noexcept {
  std::free(block);
}

namespace {

// A main window as far as recording knows it, whose host may do something while it tunes.
class Owner : public TmyComponent, public RecordingOwner {
 public:
  Owner() : TmyComponent("Owner", WS_OVERLAPPEDWINDOW, 0, 0, 0, 640, 480, nullptr) {}

  bool Tune(uint32_t frequencyHz, uint32_t) override {
    tuned.push_back(frequencyHz);
    if (const auto action = std::exchange(duringTune, nullptr)) action();
    return IsAlive();
  }
  int64_t CurrentFrequency() override { return 0; }
  void SetCaption(const TmyString& caption) override { TmyComponent::SetCaption(caption); }
  bool IsUtc() const override { return true; }
  TmyMediaPlayer& Media() override { return *media_; }
  bool IsAlive() const override { return TmyComponent::IsAlive(); }

  std::vector<uint32_t> tuned;
  std::function<void()> duringTune;

 private:
  TmyMediaPlayer* media_ = new TmyMediaPlayer(*this);  // belongs to its window
};

class SchedulerEngineTest : public testing::Test {
 protected:
  SchedulerEngineTest() {
    Clock::Hold({2026, 3, 0, 2, 12, 0, 0, 0}, 0);
    for (const uint32_t frequency : {1, 2, 3}) {
      tasks_.Add(std::make_unique<TmxTask>(TmxTask{frequency, 1, 0, {}, {0, UINT32_MAX}, 0, 0, kEveryDay, 1}));
    }
  }
  ~SchedulerEngineTest() override {
    owner_->Destroy();
    Clock::Release();
  }
  // What is recorded after a tick, by its frequency; 0 for nothing.
  uint64_t Tick() {
    engine_.Tick();
    EXPECT_EQ(session_.IsRecording(), session_.CurrentTask() != nullptr);
    return session_.CurrentTask() ? session_.CurrentTask()->frequency : 0;
  }

  FreshDocumentsFolder documents_;
  TmyTypeList<TmxTask> tasks_;
  Owner* owner_ = new Owner;  // belongs to its window
  RecordingSession session_{*owner_};
  SchedulerEngine engine_{tasks_, session_};
};

}  // namespace

TEST_F(SchedulerEngineTest, FollowsWhatTheUserDoesWithTasks) {
  tasks_.Get(0)->enabled = 0;
  EXPECT_EQ(Tick(), 2u);
  tasks_.Get(0)->enabled = 1;  // comes before the running one, but waits
  EXPECT_EQ(Tick(), 2u);
  tasks_.Get(1)->frequency = 20;  // an edit that keeps it due changes nothing of the recording
  EXPECT_EQ(Tick(), 20u);
  tasks_.Get(1)->start = 1, tasks_.Get(1)->stop = 2;
  EXPECT_EQ(Tick(), 0u);
  EXPECT_EQ(Tick(), 1u);
  tasks_.Delete(0);
  engine_.Tick();
  EXPECT_EQ(session_.CurrentTask(), nullptr);
  EXPECT_EQ(Tick(), 3u);
  EXPECT_THAT(owner_->tuned, ElementsAre(2, 1, 3));
}

TEST_F(SchedulerEngineTest, TakesTheReceiverBackAndOverridesTheGrid) {
  EXPECT_TRUE(session_.Start(RecordingSession::kFromGrid, 9, 1, nullptr));
  EXPECT_EQ(Tick(), 1u);
  session_.FrequencyChanged();
  EXPECT_EQ(owner_->Caption(), "Marlux 3");
  EXPECT_EQ(Tick(), 1u);
  EXPECT_THAT(owner_->tuned, ElementsAre(9, 1, 1));
}

TEST_F(SchedulerEngineTest, SurvivesWhatTheHostDoesInside) {
  owner_->duringTune = [this] { engine_.Tick(), tasks_.Delete(0); };  // a timer in its loop, then the user
  EXPECT_EQ(Tick(), 0u);
  EXPECT_EQ(Tick(), 2u);
  EXPECT_THAT(owner_->tuned, ElementsAre(1, 2));
}

TEST_F(SchedulerEngineTest, ATickAsksForNoMemoryWhileNothingChanges) {
  for (uint32_t i = 0; i < 1000; ++i) tasks_.Insert(std::make_unique<TmxTask>(), 0);
  for (const bool isLastRunning : {false, true}) {
    for (uint32_t i = 1000; i < tasks_.Count(); ++i) tasks_.Get(i)->enabled = isLastRunning && i == 1002;
    EXPECT_EQ(Tick(), isLastRunning ? 3u : 0u);
    const uint32_t before = allocations;
    for (int i = 0; i < 10; ++i) engine_.Tick();
    EXPECT_EQ(allocations, before);
  }
}

#include "scheduler/SchedulerEngine.h"

#include "foundation/Clock.h"
#include "tests/support/FreshDocumentsFolder.h"
#include "tests/support/Test.h"
#include "toolkit/TmyApplication.h"

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
  void StopMedia() override { media_->StopRecording(); }
  void SetCaption(const TmyString& caption) override { TmyComponent::SetCaption(caption); }
  bool IsUtc() const override { return true; }
  TmyMediaPlayer& Media() override { return *media_; }
  bool IsAlive() const override { return TmyComponent::IsAlive(); }

  std::vector<uint32_t> tuned;
  std::function<void()> duringTune;

 private:
  TmyMediaPlayer* media_ = new TmyMediaPlayer(*this);  // belongs to its window
};

struct SchedulerEngineTest : testing::Test {
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

TEST_F(SchedulerEngineTest, OverridesTheGrid) {
  EXPECT_TRUE(session_.Start(RecordingSession::kFromGrid, 9, 1, nullptr));
  EXPECT_EQ(Tick(), 1u);
  EXPECT_THAT(owner_->tuned, ElementsAre(9, 1));
  session_.Stop();
  owner_->duringTune = [this] { EXPECT_EQ(Tick(), 1u); };  // the host shows a box: the task does not wait for it
  EXPECT_FALSE(session_.Start(RecordingSession::kFromGrid, 9, 1, nullptr));
  EXPECT_EQ(session_.CurrentTask(), tasks_.Get(0));
}

TEST_F(SchedulerEngineTest, SurvivesWhatTheHostDoesInside) {
  owner_->duringTune = [] { throw std::bad_alloc(); };
  EXPECT_THROW(engine_.Tick(), std::bad_alloc);
  owner_->duringTune = [this] {  // a timer in its loop, then the user
    engine_.Tick(), tasks_.Delete(0);
    EXPECT_FALSE(session_.Start(RecordingSession::kFromGrid, 9, 1, nullptr));
  };
  EXPECT_EQ(Tick(), 0u);
  EXPECT_EQ(Tick(), 2u);
  EXPECT_THAT(owner_->tuned, ElementsAre(1, 1, 2));
  session_.Stop();
  tasks_.Get(0)->stop = 12 * 3600;
  owner_->duringTune = [] { Clock::Hold({2026, 3, 0, 2, 15, 0, 0, 0}, 0); };  // a box that stayed open for hours
  EXPECT_EQ(Tick(), 0u);
}

static void* frame[5];

TEST_F(SchedulerEngineTest, GoesOnAfterTheHostHasLeftTheCallByAnException) {
  owner_->duringTune = [] { __builtin_longjmp(frame, 1); };  // to whoever catches it; nobody in between hears of it
  if (__builtin_setjmp(frame) == 0) engine_.Tick();
  EXPECT_EQ(session_.CurrentTask(), nullptr);
  EXPECT_EQ(Tick(), 1u);
}

#include "scheduler/TmxTaskWindow.h"

#include "tests/scheduler/SchedulerFixture.h"

namespace {

struct TmxTaskWindowTest : SchedulerFixture {
  // What the editor makes of a task when the user does this and Enter confirms.
  TmxTask Edited(const TmxTask& task, std::function<void(TmyComponent&)> act) {
    TmxTask edited = task;
    auto* editor = new TmxTaskWindow(*this, *scheduler_);
    const auto open = [&] { EXPECT_TRUE(editor->Edit(edited)); };
    const auto confirm = [&](TmyComponent& dialog) { act(dialog), SendMessageA(dialog.Handle(), kMsgConfirm, 0, 0); };
    InDialog("New Task", open, confirm);
    editor->Destroy();
    return edited;
  }
  static TmyComponent& Field(TmyComponent& dialog, int index) {
    TmyComponent* field = dialog.NextChild(nullptr);
    while (index-- > 0) field = dialog.NextChild(field);
    return *field;
  }
};

TaskDate Day(WORD year, WORD month, WORD day, WORD hour) {
  return DateOfTime({year, month, 0, day, hour, 0, 0, 0});
}

TEST_F(TmxTaskWindowTest, StoresWhatWasEntered) {
  const TmxTask before = {9420000, 9, 77, Day(2026, 11, 21, 5), Day(2026, 12, 31, 6), 82800, 86400, 0x7F, 5};
  for (const bool utc : {true, false}) {
    utc_ = utc;
    const TmxTask after = Edited(before, [](TmyComponent& dialog) {
      ClickOn(dialog, "Enable task");
      ClickOn(dialog, "Sun");
      Field(dialog, 0).TakeFocus();
      Input::Key(Field(dialog, 0), VK_PRIOR);
      Input::Key(Field(dialog, 0), VK_END);
      Input::Type(Field(dialog, 0), "27");  // a year of two digits, confirmed as it stands
      for (int i = 0; i < 2; ++i) Input::Key(Field(dialog, 1), VK_PRIOR);  // to February
      Input::Retype(Field(dialog, 2), "003000");
      Input::Retype(Field(dialog, 3), "010000");
      Input::Retype(Field(dialog, 4), "99999");  // beyond the host's range
      Input::Click(Field(dialog, 5), 4, 20);     // and a step down
      Input::Key(Field(dialog, 6), VK_HOME);
    });
    EXPECT_EQ(after, (TmxTask{29999000, 1, 77, Day(2027, 12, 21, 5), Day(2027, 2, 28, 6), utc ? 1800u : 81000u,
                              utc ? 3600u : 82800u, 0x7E, 0}));
  }
}

// Also what it could not: a mode that the host has not, a frequency beyond its range, times beyond the day.
TEST_F(TmxTaskWindowTest, StoresWhatItShows) {
  constexpr TaskDate kNoDate = {0x12345678, 0xFFFFFFFF};
  const TmxTask odd = {10'000'000'000, 20, 1, kNoDate, {1, 0}, 90000, 86400 + 1800, 0, 1};
  TmxTask shown = {30000000, 1, 1, kNoDate, {1, 0}, 90000, 86400 + 1800, 0, 1};
  EXPECT_EQ(Edited(odd, [](TmyComponent&) {}), shown);
  utc_ = false;
  shown.start = 3600, shown.stop = 1800;
  EXPECT_EQ(Edited(odd, [](TmyComponent&) {}), shown);
  std::vector<uint32_t> host = HostBlockOfReceiver();
  std::swap(host[392 / 4], host[396 / 4]);  // its range is none
  host_ = HostInfo::Copy(host.data());
  EXPECT_EQ(Edited(odd, [](TmyComponent&) {}).frequency, odd.frequency);
  host_ = HostInfo();
  EXPECT_EQ(Edited(odd, [](TmyComponent&) {}).mode, 0);
}

TEST_F(TmxTaskWindowTest, IsConfirmedOnceMoreWhenMemoryWasShort) {
  const TmxTask edited = Edited({6005000, 1, 0, {}, {1, 0}, 0, 0, 0, 1}, [](TmyComponent& dialog) {
    EXPECT_TRUE(TmyString::WithRoom(0x7FFFFFF0).IsEmpty());
    SendMessageA(dialog.Handle(), kMsgConfirm, 0, 0);
    EXPECT_TRUE(dialog.IsVisible());
    Input::Retype(Field(dialog, 4), "7325");
  });
  EXPECT_EQ(edited.frequency, 7325000u);
}

}  // namespace

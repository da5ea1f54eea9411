#include "scheduler/TmxSchedulerWindow.h"

#include "tests/scheduler/SchedulerFixture.h"
#include "toolkit/CentredPlace.h"
#include "toolkit/TmyMsgBox.h"

struct TmxSchedulerWindowTest : SchedulerFixture {
  void Fill(int count) {
    for (int i = 0; i < count; ++i) tasks_.Add(std::make_unique<TmxTask>());
    scheduler_->TasksChanged();
  }
  void Key(uint32_t key) const { Input::Key(scheduler_->Grid(), key); }
  // What the key in the grid opens, and what the user does there.
  void ByKey(uint32_t key, std::function<void(TmyComponent&)> act) const {
    InDialog(
        key == VK_DELETE ? "Delete task" : "New Task", [&] { Key(key); }, std::move(act));
  }
  static void Confirm(TmyComponent& dialog) { SendMessageA(dialog.Handle(), kMsgConfirm, 0, 0); }
  static void Escape(TmyComponent& dialog) { SendMessageA(dialog.Handle(), kMsgEscape, 0, 0); }
};

TEST_F(TmxSchedulerWindowTest, OnlyAConfirmedEditorChangesTheList) {
  ByKey(VK_INSERT, [&](TmyComponent& dialog) {  // confirmed below another box, which keeps its loop from ending
    auto* box = new TmyMsgBox(*window_, "About", "", {"OK"});
    for (const UINT message : {kMsgConfirm, UINT{WM_CLOSE}}) PostMessageA(dialog.Handle(), message, 0, 0);
    PostMessageA(box->Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(box->ShowModal(window_), -1);
  });
  ByKey(VK_INSERT, Escape);
  const auto post = [&] {
    scheduler_->PostNewTask(std::make_unique<TmxTask>(TmxTask{6005000, 1, 0, {}, {}, 0, 0, 0, 1})), PumpFor(0);
  };
  InDialog("New Task", post, Confirm);
  ASSERT_EQ(tasks_.Count(), 2u);
  const TaskDate now = DateOfTime(Clock::Utc());  // half past eleven, and so the proposed hour goes over midnight
  EXPECT_EQ(*tasks_.Get(0), (TmxTask{9420000, 1, 0, now, now, 84600, 88200, kEveryDay, 1}));
  EXPECT_EQ(tasks_.Get(1)->frequency, 6005000u);
  EXPECT_EQ(scheduler_->Grid().CurrentRow(), 2u);
  Key(VK_HOME);
  ByKey(VK_RETURN, [](TmyComponent& dialog) { ClickOn(dialog, "Enable task"), Confirm(dialog); });
  EXPECT_EQ(tasks_.Get(0)->enabled, 0u);
}

TEST_F(TmxSchedulerWindowTest, DeletesWhatIsSelectedOnYes) {
  Fill(3);
  const TmxTask* const kept = tasks_.Get(2);
  Key(VK_UP);
  ByKey(VK_DELETE, Escape);
  const auto click = [&] { ClickOn(*scheduler_, "Delete task"); };
  InDialog("Delete task", click, [](TmyComponent& box) { ClickOn(box, "No"); });
  ASSERT_EQ(tasks_.Count(), 3u);
  ByKey(VK_DELETE, Confirm);
  ASSERT_EQ(tasks_.Count(), 2u);
  EXPECT_EQ(tasks_.Get(1), kept);
  for (const int modifier : {VK_SHIFT, VK_CONTROL, VK_MENU}) {  // a dialog would hang
    for (const uint32_t key : {VK_INSERT, VK_DELETE}) Input::Key(scheduler_->Grid(), key, modifier);
  }
  Input::Key(scheduler_->Grid(), VK_DELETE, 0, 1 << 30 | 1);
  for (int left = 2; left > 0; --left) InDialog("Delete task", click, Confirm);
  SetFocus(scheduler_->Handle());
  EXPECT_EQ(GetFocus(), scheduler_->Grid().Handle());
  Key(VK_DELETE);
}

TEST_F(TmxSchedulerWindowTest, AWiderColumnDoesNotPushItsButtonsOffTheScreen) {
  const int edge = WorkAreaAt(scheduler_->Bounds()).right;
  scheduler_->SetBounds(edge - scheduler_->Width(), 50, scheduler_->Width(), 300);
  scheduler_->Grid().SetColumnWidth(0, 300);
  scheduler_->Grid().columnResized(0);
  EXPECT_EQ(scheduler_->Bounds().right, edge);
  EXPECT_GE(scheduler_->Width(), scheduler_->Grid().ColumnsRight() + 10);
}

TEST_F(TmxSchedulerWindowTest, ClosingGoesFromTheDialogOutwards) {
  Fill(1);
  for (const uint32_t key : {VK_INSERT, VK_DELETE}) {
    ByKey(key, [&](TmyComponent& dialog) {
      SendMessageA(scheduler_->Handle(), WM_USER, 0, 0);  // opens no second one
      SendMessageA(scheduler_->Handle(), WM_CLOSE, 0, 0);
      EXPECT_TRUE(dialog.IsAlive());  // until its loop has ended
      EXPECT_FALSE(window_->IsEnabled());
    });
  }
  EXPECT_TRUE(scheduler_->IsVisible() && scheduler_->IsEnabled() && window_->IsEnabled());
  EXPECT_EQ(tasks_.Count(), 1u);
  window_->Enable(false);  // a dialog is open on it: ours would hang here
  for (const uint32_t key : {VK_INSERT, VK_DELETE, VK_RETURN}) Key(key);
  window_->Enable(true);
  Key(VK_ESCAPE), PumpFor(0);
  EXPECT_TRUE(scheduler_->IsAlive() && !scheduler_->IsVisible());
}

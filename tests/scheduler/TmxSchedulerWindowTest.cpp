#include "scheduler/TmxSchedulerWindow.h"

#include "tests/scheduler/SchedulerFixture.h"
#include "toolkit/Tmy_CheckBox.h"

namespace {

class TmxSchedulerWindowTest : public SchedulerFixture {
 protected:
  void Fill(int count) {
    for (int i = 0; i < count; ++i) tasks_.Add(std::make_unique<TmxTask>());
    scheduler_->TasksChanged();
  }
  void Key(uint32_t key) const { Input::Key(scheduler_->Grid(), key); }
  static void Confirm(TmyComponent& dialog) { SendMessageA(dialog.Handle(), kMsgConfirm, 0, 0); }
  static void Escape(TmyComponent& dialog) { SendMessageA(dialog.Handle(), kMsgEscape, 0, 0); }
};

TEST_F(TmxSchedulerWindowTest, OnlyAConfirmedEditorChangesTheList) {
  In(
      "New Task", [&] { Key(VK_INSERT); }, Confirm);
  In(
      "New Task", [&] { NewTask(); }, Escape);
  In(
      "New Task",
      [&] {
        scheduler_->PostNewTask(std::make_unique<TmxTask>(TmxTask{6005000, 1, 0, {}, {}, 0, 0, 0, 1})), Input::Pump();
      },
      Confirm);
  ASSERT_EQ(tasks_.Count(), 2u);
  EXPECT_EQ(tasks_.Get(0)->frequency, 9420000u);
  EXPECT_EQ(tasks_.Get(1)->frequency, 6005000u);
  EXPECT_EQ(scheduler_->Grid().CurrentRow(), 2u);
  Key(VK_HOME);
  In(
      "New Task", [&] { Key(VK_RETURN); },
      [](TmyComponent& dialog) {
        Click<Tmy_CheckBox>(dialog, 0);
        Confirm(dialog);
      });
  EXPECT_EQ(tasks_.Get(0)->enabled, 0u);
  EXPECT_EQ(Dialog("New Task"), nullptr);
}

TEST_F(TmxSchedulerWindowTest, DeletesWhatIsSelectedOnYes) {
  Fill(3);
  const TmxTask* const kept[] = {tasks_.Get(0), tasks_.Get(2)};
  Key(VK_UP);
  In(
      "Delete task", [&] { Key(VK_DELETE); }, Escape);
  In(
      "Delete task", [&] { Click<Tmy_Btn>(*scheduler_, 1); }, [](TmyComponent& box) { Click<Tmy_Btn>(box, 1); });
  ASSERT_EQ(tasks_.Count(), 3u);
  In(
      "Delete task", [&] { Key(VK_DELETE); }, Confirm);
  ASSERT_EQ(tasks_.Count(), 2u);
  EXPECT_TRUE(tasks_.Get(0) == kept[0] && tasks_.Get(1) == kept[1]);
  scheduler_->Grid().SetCurrentRow(TmyStringGrid::kNoRow, false);
  Key(VK_DELETE);  // would hang on a question
  EXPECT_EQ(tasks_.Count(), 2u);
}

TEST_F(TmxSchedulerWindowTest, ClosingGoesFromTheDialogOutwards) {
  Fill(1);
  const auto close = [&](TmyComponent& dialog) {
    NewTask();  // opens no second one
    SendMessageA(scheduler_->Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(dialog.IsAlive());  // until its loop has ended
  };
  In(
      "New Task", [&] { NewTask(); }, close);
  In(
      "Delete task", [&] { Key(VK_DELETE); }, close);
  EXPECT_TRUE(scheduler_->IsVisible() && scheduler_->IsEnabled());
  EXPECT_EQ(tasks_.Count(), 1u);
  Key(VK_ESCAPE), Input::Pump();
  EXPECT_TRUE(scheduler_->IsAlive() && !scheduler_->IsVisible());
  scheduler_->Open();
  Click<Tmy_Btn>(*scheduler_, 3);
  EXPECT_FALSE(scheduler_->IsVisible());
}

TEST_F(TmxSchedulerWindowTest, GoesWithItsOwnerFromInsideADialog) {
  Fill(1);
  const TmyWindowBase::Hold hold;
  const std::pair<const char*, uint32_t> dialogs[] = {{"New Task", VK_INSERT}, {"Delete task", VK_DELETE}};
  for (const auto& [caption, key] : dialogs) {
    In(
        caption, [&] { Key(key); },
        [&](TmyComponent&) {
          scheduler_->PostNewTask(std::make_unique<TmxTask>());
          window_->Destroy();
        });
    EXPECT_EQ(Dialog(caption), nullptr);
    EXPECT_EQ(tasks_.Count(), 1u);
    window_ = new TmyComponent("Owner", WS_POPUP, 0, 0, 0, 300, 200, nullptr);
    scheduler_ = new TmxSchedulerWindow(*this);
  }
}

TEST_F(TmxSchedulerWindowTest, IsNeverNarrowerThanItsColumns) {
  TmyStringGrid& grid = scheduler_->Grid();
  for (const int width : {20, 150}) {
    for (uint32_t column = 0; column < grid.ColumnCount(); ++column) grid.SetColumnWidth(column, width);
    scheduler_->SetBounds(0, 0, 10, 10);
    EXPECT_GE(scheduler_->Width(), std::max(429, grid.ColumnsRight() + 10));
    EXPECT_LE(scheduler_->Width(), std::max(429, grid.ColumnsRight() + 40));
    EXPECT_GE(scheduler_->Height(), 208);
  }
}

}  // namespace

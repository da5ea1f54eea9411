#include "scheduler/TmxSchedulerWindow.h"

#include "tests/scheduler/SchedulerFixture.h"
#include "toolkit/TmyMsgBox.h"
#include "toolkit/Tmy_CheckBox.h"

namespace {

class TmxSchedulerWindowTest : public SchedulerFixture {
 protected:
  void Fill(int count) {
    for (int i = 0; i < count; ++i) tasks_.Add(std::make_unique<TmxTask>());
    scheduler_->TasksChanged();
  }
  const RECT screen_ = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  void Key(uint32_t key) const { Input::Key(scheduler_->Grid(), key); }
  // Which of its buttons can be pressed, "1" or "0" each.
  std::string Buttons() const {
    std::string states;
    for (TmyControl* control = scheduler_->FirstControl(); control; control = control->NextControl()) {
      states += control->IsEnabled() ? '1' : '0';
    }
    return states;
  }
  static std::map<COLORREF, int> UpperHalf(const TmyComponent& box) {
    return ControlFixture::Colors(box, {0, 0, box.ClientWidth(), box.ClientHeight() / 2});
  }
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
  const auto confirmBelowAnotherBox = [&](TmyComponent& dialog) {
    auto* box = new TmyMsgBox(window_, "About", "", {"OK"});
    for (const UINT message : {kMsgConfirm, UINT{WM_CLOSE}}) PostMessageA(dialog.Handle(), message, 0, 0);
    PostMessageA(box->Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(box->ShowModal(window_), -1);
  };
  In(
      "New Task", [&] { Key(VK_INSERT); }, confirmBelowAnotherBox);
  EXPECT_EQ(tasks_.Count(), 3u);
}

TEST_F(TmxSchedulerWindowTest, DeletesWhatIsSelectedOnYes) {
  Fill(3);
  const TmxTask* const kept = tasks_.Get(2);
  Key(VK_UP);
  In(
      "Delete task", [&] { Key(VK_DELETE); },
      [&](TmyComponent& box) {
        auto* same = new TmyMsgBox(scheduler_, "", "Are you sure?", {"Yes", "No"});
        EXPECT_EQ(UpperHalf(box), UpperHalf(*same));
        same->Destroy();
        Escape(box);
      });
  In(
      "Delete task", [&] { Click<Tmy_Btn>(*scheduler_, 1); }, [](TmyComponent& box) { Click<Tmy_Btn>(box, 1); });
  ASSERT_EQ(tasks_.Count(), 3u);
  In(
      "Delete task", [&] { Key(VK_DELETE); }, Confirm);
  ASSERT_EQ(tasks_.Count(), 2u);
  EXPECT_EQ(tasks_.Get(1), kept);
  for (const int modifier : {VK_SHIFT, VK_CONTROL, VK_MENU}) {  // a dialog would hang
    for (const uint32_t key : {VK_INSERT, VK_DELETE}) Input::Key(scheduler_->Grid(), key, modifier);
  }
  Input::Key(scheduler_->Grid(), VK_DELETE, 0, 1 << 30 | 1);
  EXPECT_EQ(Buttons(), "1111");
  for (int left = 2; left > 0; --left) {
    In(
        "Delete task", [&] { Click<Tmy_Btn>(*scheduler_, 1); }, Confirm);
  }
  EXPECT_EQ(Buttons(), "1001");
  SetFocus(scheduler_->Handle());
  EXPECT_EQ(GetFocus(), scheduler_->Grid().Handle());
  Key(VK_DELETE);  // would hang on a question
}

TEST_F(TmxSchedulerWindowTest, MarksTheRowOfTheRunningTask) {
  Fill(2);
  const auto marked = [&] {
    const RECT all = {0, 0, scheduler_->Grid().ClientWidth(), scheduler_->Grid().ClientHeight()};
    return ControlFixture::Colors(scheduler_->Grid(), all)[TmyApplication::Get().Theme().Color().marked];
  };
  EXPECT_EQ(marked(), 0);
  running_ = tasks_.Get(0);
  scheduler_->RunningTaskChanged();
  EXPECT_GT(marked(), 300);
}

TEST_F(TmxSchedulerWindowTest, ClosingGoesFromTheDialogOutwards) {
  Fill(1);
  const auto close = [&](TmyComponent& dialog) {
    NewTask();  // opens no second one
    SendMessageA(scheduler_->Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(dialog.IsAlive());  // until its loop has ended
    EXPECT_FALSE(window_->IsEnabled());
  };
  In(
      "New Task", [&] { NewTask(); }, close);
  In(
      "Delete task", [&] { Key(VK_DELETE); }, close);
  EXPECT_TRUE(scheduler_->IsVisible() && scheduler_->IsEnabled() && window_->IsEnabled());
  EXPECT_EQ(tasks_.Count(), 1u);
  Key(VK_ESCAPE), Input::Pump();
  EXPECT_TRUE(scheduler_->IsAlive() && !scheduler_->IsVisible());
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

TEST_F(TmxSchedulerWindowTest, OpensWhereItCanBeSeen) {
  for (const int at : {-2000, 2000}) {
    auto* another = new TmxSchedulerWindow(*this);
    window_->SetBounds(at, at, 300, 200);
    another->Open();
    RECT seen, whole = another->Bounds();
    EXPECT_TRUE(IntersectRect(&seen, &whole, &screen_) && EqualRect(&seen, &whole));
  }
}

TEST_F(TmxSchedulerWindowTest, IsNeverNarrowerThanItsColumns) {
  TmyStringGrid& grid = scheduler_->Grid();
  for (const int width : {20, 150}) {
    for (uint32_t column = 0; column < grid.ColumnCount(); ++column) grid.SetColumnWidth(column, width);
    scheduler_->SetBounds(0, 0, 10, 10);
    EXPECT_GE(scheduler_->Width(), std::max(429, grid.ColumnsRight() + 10));
    EXPECT_GE(scheduler_->Height(), 208);
  }
}

}  // namespace

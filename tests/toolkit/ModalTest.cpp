// The modal loop: how it ends, and what it leaves behind.
#include <gtest/gtest.h>

#include <functional>

#include "toolkit/TmyApplication.h"
#include "toolkit/TmyPanel.h"

namespace {

// Does something once, inside the modal loop.
class Dialog : public TmyComponent {
 public:
  explicit Dialog(TmyComponent* owner) : TmyComponent("Dialog", WS_POPUP | WS_CAPTION, 0, 0, 0, 80, 40, owner) {}
  ~Dialog() override { ++deleted; }

  void InLoop(std::function<void(Dialog&)> action) {
    action_ = std::move(action);
    SetTimer(Handle(), 1, 10, nullptr);
  }
  void Timer(uintptr_t) override {
    KillTimer(Handle(), 1);
    action_(*this);
  }
  static int deleted;

 private:
  std::function<void(Dialog&)> action_;
};
int Dialog::deleted = 0;

class ModalTest : public testing::Test {
 protected:
  void SetUp() override {
    Dialog::deleted = 0;
    owner_ = new TmyComponent("Owner", WS_POPUP, 0, 0, 0, 100, 100, nullptr);
    dialog_ = new Dialog(owner_);
  }
  void TearDown() override {
    if (IsWindow(ownerHandle_)) DestroyWindow(ownerHandle_);
  }
  int Run(std::function<void(Dialog&)> action) {
    ownerHandle_ = owner_->Handle();
    dialog_->InLoop(std::move(action));
    return dialog_->ShowModal(owner_);
  }

  TmyComponent* owner_ = nullptr;
  Dialog* dialog_ = nullptr;
  HWND ownerHandle_ = nullptr;
};

TEST_F(ModalTest, AResultEndsItAndTheOwnerWasDisabledMeanwhile) {
  bool ownerEnabled = true;
  const int result = Run([&](Dialog& dialog) {
    ownerEnabled = owner_->IsEnabled();
    auto* panel = new TmyPanel(dialog, WS_VISIBLE);
    SendMessageA(panel->Handle(), kMsgEndModal, 7, 0);  // from inside, passed up
  });
  EXPECT_EQ(result, 7);
  EXPECT_FALSE(ownerEnabled);
  EXPECT_TRUE(owner_->IsEnabled());
  EXPECT_FALSE(dialog_->IsVisible());
  EXPECT_EQ(Dialog::deleted, 0);
}

TEST_F(ModalTest, TheCloseBoxGivesMinusOneAndKeepsTheDialog) {
  EXPECT_EQ(Run([](Dialog& dialog) { PostMessageA(dialog.Handle(), WM_CLOSE, 0, 0); }), -1);
  EXPECT_TRUE(dialog_->IsAlive());
  EXPECT_EQ(Run([](Dialog& dialog) { dialog.EndModal(3); }), 3) << "it can run again";
}

TEST_F(ModalTest, AnOwnerThatWasDisabledStaysSo) {
  owner_->Enable(false);
  EXPECT_EQ(Run([](Dialog& dialog) { dialog.EndModal(1); }), 1);
  EXPECT_FALSE(owner_->IsEnabled());
}

TEST_F(ModalTest, DestroyingTheOwnerInsideEndsItWithoutTouchingWhatIsGone) {
  int deletedInside = -1;
  EXPECT_EQ(Run([&](Dialog&) {
              owner_->Destroy();
              deletedInside = Dialog::deleted;
            }),
            0);
  EXPECT_EQ(deletedInside, 0) << "the object outlives the loop that runs on it";
  EXPECT_EQ(Dialog::deleted, 1);
  EXPECT_FALSE(IsWindow(ownerHandle_));
}

TEST_F(ModalTest, AQuitMessageEndsItAndStaysForTheLoopOutside) {
  EXPECT_EQ(Run([](Dialog&) { PostQuitMessage(5); }), 0);
  MSG message = {};
  ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 5u);
  EXPECT_TRUE(owner_->IsEnabled());
}

TEST_F(ModalTest, ClosingAWindowOutsideTheLoopPostsNoQuitMessageUnlessItIsTheMainWindow) {
  MSG message = {};
  SendMessageA(owner_->Handle(), WM_CLOSE, 0, 0);
  EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  auto* main = new TmyComponent("Main", WS_POPUP, 0, 0, 0, 10, 10, nullptr);
  TmyApplication::Get().SetMainWindow(main);
  SendMessageA(main->Handle(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(TmyApplication::Get().MainWindow(), nullptr);
}

}  // namespace

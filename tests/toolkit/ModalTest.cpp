// The modal loop: how it ends, and what it leaves behind.
#include "tests/toolkit/ControlFixture.h"

namespace {

// Does something once, inside the modal loop.
struct Dialog : TmyComponent {
  explicit Dialog(TmyComponent* owner) : TmyComponent("Dialog", WS_POPUP | WS_CAPTION, 0, 0, 0, 80, 40, owner) {}
  ~Dialog() override { ++deleted; }
  void Timer(uintptr_t id) override {
    KillTimer(Handle(), id);
    action(*this);
  }

  std::function<void(Dialog&)> action;
  inline static int deleted = 0;
};

struct ModalTest : ControlFixture {
  int Run(std::function<void(Dialog&)> action) {
    dialog_->action = std::move(action);
    SetTimer(dialog_->Handle(), 1, 10, nullptr);
    return dialog_->ShowModal(window_);
  }
  Dialog* dialog_ = new Dialog(window_);
};

// Results and closing are seen in the tests of the dialogs.
TEST_F(ModalTest, AQuitMessageEndsItAndStaysForTheLoopOutside) {
  EXPECT_EQ(Run([this](Dialog&) {
              EXPECT_FALSE(window_->IsEnabled());
              PostQuitMessage(5);
            }),
            0);
  EXPECT_TRUE(window_->IsEnabled());
  MSG quit;
  EXPECT_TRUE(PeekMessageA(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(ModalTest, DestroyingTheOwnerInsideEndsItWithoutTouchingWhatIsGone) {
  Dialog::deleted = 0;
  EXPECT_EQ(Run([this](Dialog&) {
              Close();
              EXPECT_EQ(Dialog::deleted, 0) << "the object outlives the loop that runs on it";
            }),
            0);
  EXPECT_EQ(Dialog::deleted, 1);
}

}  // namespace

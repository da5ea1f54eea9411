// The modal loop: how it ends, and what it leaves behind.
#include "tests/toolkit/ControlFixture.h"
#include "toolkit/TmyPanel.h"

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

TEST_F(ModalTest, EndsWithItsResultAndLeavesTheOwnerAsItWas) {
  const std::pair<int, void (*)(Dialog&)> cases[] = {
      {3, [](Dialog& dialog) { dialog.EndModal(3); }},
      {-1, [](Dialog& dialog) { PostMessageA(dialog.Handle(), WM_CLOSE, 0, 0); }},
      {7, [](Dialog& dialog) { SendMessageA((new TmyPanel(dialog, 0))->Handle(), kMsgEndModal, 7, 0); }},  // passed up
      {0, [](Dialog&) { PostQuitMessage(5); }},
  };
  for (const auto& [result, end] : cases) {
    const int ended = Run([&](Dialog& dialog) {
      EXPECT_FALSE(window_->IsEnabled());
      end(dialog);
    });
    EXPECT_EQ(ended, result);
    EXPECT_TRUE(window_->IsEnabled()) << result;
    MSG quit;  // it stays for the loop outside
    EXPECT_EQ(PeekMessageA(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), result == 0);
    EXPECT_EQ(dialog_->IsVisible(), result == 0);
  }
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

// The modal loop: how it ends, and what it leaves behind. Results and closing are seen in the tests of the dialogs.
#include "tests/toolkit/InDialog.h"
#include "toolkit/TmyMsgBox.h"

struct Box : TmyMsgBox {
  using TmyMsgBox::TmyMsgBox;
  ~Box() override { ++deleted; }
  inline static int deleted = 0;
};

struct ModalTest : ControlFixture {
  void Run(const std::function<void(TmyComponent&)>& act) {
    auto* box = new Box(*window_, "Box", "", {"OK"});
    const auto open = [&] { EXPECT_EQ(box->ShowModal(window_), 0); };
    InDialog("Box", open, act);
  }
};

TEST_F(ModalTest, AQuitMessageEndsItAndStaysForTheLoopOutside) {
  Run([this](TmyComponent&) {
    EXPECT_FALSE(window_->IsEnabled());
    PostQuitMessage(5);
  });
  EXPECT_TRUE(window_->IsEnabled());
  MSG quit;
  EXPECT_TRUE(PeekMessageA(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(ModalTest, DestroyingTheOwnerInsideEndsItWithoutTouchingWhatIsGone) {
  Box::deleted = 0;
  Run([this](TmyComponent&) {
    Close();
    EXPECT_EQ(Box::deleted, 0) << "its loop runs on it";
  });
  EXPECT_EQ(Box::deleted, 1);
}

#include "tests/toolkit/EditFixture.h"

struct TmyEditTest : EditFixture {
  TmyEdit* edit_ = Make<TmyEdit>();
};

TEST_F(TmyEditTest, OnlyTheUserRaisesEventsAndEnterAndEscapeStayOutOfTheText) {
  edit_->SetText("program");
  EXPECT_EQ(changes_, 0);
  Input::Type(*edit_, "ab\b\r\n\t\x1b");
  EXPECT_EQ(changes_, 3);
  EXPECT_EQ(edit_->Text(), "aprogram");
  Input::Key(*edit_, VK_RETURN);
  EXPECT_EQ(events_, 1);
  Input::Key(*edit_, VK_ESCAPE);
  PumpFor(0);
  EXPECT_EQ(window_->confirms, 1);
  EXPECT_EQ(window_->escapes, 1);
}

TEST_F(TmyEditTest, LosingTheFocusCommitsAChangeOnce) {
  for (const int commits : {0, 1, 1}) {
    SetFocus(nullptr);
    EXPECT_EQ(events_, commits);
    SetFocus(edit_->Handle());
    if (commits == 0) Input::Type(*edit_, "x");
  }
  CloseDuring([this] { Input::Key(*edit_, VK_RETURN); });
}

TEST_F(TmyEditTest, TabSelectsEverythingAClickNothingAndActivationWhatWasSelected) {
  auto* next = Make<TmyEdit>();
  edit_->SetText("first");
  Input::Key(*next, VK_TAB);
  EXPECT_EQ(Selection(*edit_), std::pair(0, 5));
  Input::Key(*edit_, VK_TAB, VK_SHIFT);
  EXPECT_EQ(GetFocus(), next->Handle());
  Input::Click(*edit_, 1, 1);
  EXPECT_EQ(GetFocus(), edit_->Handle());
  EXPECT_EQ(Selection(*edit_).first, Selection(*edit_).second);
  Input::Key(*edit_, 'A', VK_CONTROL);
  EXPECT_EQ(Selection(*edit_), std::pair(0, 5));
  SendMessageA(edit_->Handle(), EM_SETSEL, 1, 2);
  SetFocus(nullptr);
  SetFocus(window_->Handle());
  EXPECT_EQ(GetFocus(), edit_->Handle());
  EXPECT_EQ(Selection(*edit_), std::pair(1, 2));
}

#include "tests/toolkit/EditFixture.h"

namespace {

class TmyEditTest : public EditFixture {
 protected:
  TmyEdit* edit_ = Make<TmyEdit>();
};

TEST_F(TmyEditTest, OnlyTheUserRaisesEvents) {
  edit_->SetText("program");
  EXPECT_EQ(changes_, 0);
  Type(*edit_, "ab\b");
  EXPECT_EQ(changes_, 3);
  EXPECT_STREQ(edit_->Text().Chars(), "aprogram");
  SendMessageA(edit_->Handle(), EM_UNDO, 0, 0);
  EXPECT_GT(changes_, 3);  // some systems tell it in two steps
  EXPECT_EQ(commits_, 0);
}

TEST_F(TmyEditTest, EnterCommitsAndConfirmsAndEscapeGoesUpWithoutReachingTheText) {
  Type(*edit_, "x");
  Input::Key(*edit_, VK_RETURN);
  EXPECT_EQ(commits_, 1);
  EXPECT_EQ(window_->confirms, 0);  // posted
  Input::Key(*edit_, VK_ESCAPE);
  Type(*edit_, "\r\n\t\x1b");
  Pump();
  EXPECT_EQ(window_->confirms, 1);
  EXPECT_EQ(window_->escapes, 1);
  EXPECT_STREQ(edit_->Text().Chars(), "x");
  EXPECT_EQ(changes_, 1);
}

TEST_F(TmyEditTest, LosingTheFocusCommitsAChangeOnce) {
  SetFocus(window_->Handle());
  EXPECT_EQ(commits_, 0);
  SetFocus(edit_->Handle());
  Type(*edit_, "x");
  SetFocus(nullptr);
  SetFocus(edit_->Handle());
  SetFocus(nullptr);
  EXPECT_EQ(commits_, 1);
  EXPECT_STREQ(committedText_.Chars(), "x");
}

TEST_F(TmyEditTest, GoesWithItsWindowInsideTheCommit) {
  destroyInCommit_ = true;
  Type(*edit_, "x");
  Input::Key(*edit_, VK_RETURN);
  EXPECT_EQ(commits_, 1);
  EXPECT_EQ(window_, nullptr);
}

TEST_F(TmyEditTest, TabSelectsEverythingAndAClickDoesNot) {
  auto* next = Make<TmyEdit>();
  next->SetText("second");
  edit_->SetText("first");
  Input::Key(*next, VK_TAB);
  EXPECT_EQ(GetFocus(), edit_->Handle());
  EXPECT_EQ(Selection(*edit_), std::make_pair(0, 5));
  Input::Key(*edit_, VK_TAB, VK_SHIFT);
  EXPECT_EQ(GetFocus(), next->Handle());
  EXPECT_EQ(Selection(*next), std::make_pair(0, 6));
  Input::Click(*edit_, 1, 1);
  EXPECT_EQ(GetFocus(), edit_->Handle());
  EXPECT_EQ(Selection(*edit_).first, Selection(*edit_).second);
  Input::Key(*edit_, 'A', VK_CONTROL);
  EXPECT_EQ(Selection(*edit_), std::make_pair(0, 5));
}

TEST_F(TmyEditTest, AnActivatedWindowGivesTheFocusBackWithTheSelectionAsItWas) {
  edit_->SetText("first");
  SendMessageA(edit_->Handle(), EM_SETSEL, 1, 2);
  SetFocus(nullptr);
  SetFocus(window_->Handle());
  EXPECT_EQ(GetFocus(), edit_->Handle());
  EXPECT_EQ(Selection(*edit_), std::make_pair(1, 2));
}

TEST_F(TmyEditTest, TheTextLineStandsInTheMiddle) {
  RECT all = {}, client = {};
  GetWindowRect(edit_->Handle(), &all);
  GetClientRect(edit_->Handle(), &client);
  MapWindowPoints(edit_->Handle(), nullptr, reinterpret_cast<POINT*>(&client), 2);
  EXPECT_EQ(client.bottom - client.top, TmyApplication::Get().Theme().TextHeight());
  EXPECT_EQ(client.top - all.top, all.bottom - client.bottom);
  EXPECT_GT(client.left, all.left + 1);
  // A click into the padding is one into the text.
  EXPECT_EQ(SendMessageA(edit_->Handle(), WM_NCHITTEST, 0, MAKELPARAM(all.left + 1, all.top + 1)), HTCLIENT);
}

TEST_F(TmyEditTest, TheParentGivesTheColours) {
  const TmyTheme::Colors& color = TmyApplication::Get().Theme().Color();
  const HDC dc = CreateCompatibleDC(nullptr);
  for (const bool enabled : {true, false}) {
    edit_->Enable(enabled);
    SendMessageA(window_->Handle(), enabled ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                 reinterpret_cast<LPARAM>(edit_->Handle()));
    EXPECT_EQ(GetBkColor(dc), enabled ? color.field : color.surface);
    EXPECT_EQ(GetTextColor(dc), enabled ? color.text : color.disabled);
  }
  DeleteDC(dc);
}

}  // namespace

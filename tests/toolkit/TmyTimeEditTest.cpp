#include "toolkit/TmyTimeEdit.h"

#include "tests/toolkit/EditFixture.h"

struct TmyTimeEditTest : EditFixture {
  void Start(int begin, int end) {
    edit_->SetValue(15 * 3600 + 45 * 60 + 59);
    SendMessageA(edit_->Handle(), EM_SETSEL, static_cast<WPARAM>(begin), end);
    changes_ = 0;
  }

  TmyTimeEdit* edit_ = Make<TmyTimeEdit>();
};

TEST_F(TmyTimeEditTest, TypingOverASelectionStartsFromZerosAndTellsChanges) {
  const std::tuple<int, int, const char*, const char*, int, int> cases[] = {
      {0, 8, "2330", "23:30:00", 6, 3}, {3, 5, "7", "15:07:59", 6, 1},  {0, 2, ":3", "15:35:59", 4, 1},
      {3, 8, "\b", "15:00:00", 3, 1},   {5, 5, "\b", "15:40:59", 4, 1}, {0, 0, "ab-", "15:45:59", 0, 0},
      {0, 0, "12", "12:45:59", 3, 1},  // the 1 stood there before
  };
  for (const auto& [begin, end, typed, after, caret, changes] : cases) {
    Start(begin, end);
    Input::Type(*edit_, typed);
    EXPECT_EQ(edit_->Text(), after) << typed;
    EXPECT_EQ(Selection(*edit_), std::pair(caret, caret)) << typed;
    EXPECT_EQ(changes_, changes) << typed;
    EXPECT_EQ(edit_->Value(), *TimeText::ParseTime(after));
  }
  SendMessageA(edit_->Handle(), EM_UNDO, 0, 0);
  EXPECT_EQ(edit_->Text(), "15:45:59");
}

TEST_F(TmyTimeEditTest, TypingKeepsTheMask) {
  const std::tuple<int, const char*, const char*> cases[] = {
      // where, typed; then, with the caret as "|"
      {0, "2", "2|0:45:59"},  {0, "24", "2|0:45:59"},  // neither 25 nor 24 is an hour
      {0, "93", "09:3|5:59"}, {3, "6", "15:06:|59"},   // a digit that cannot begin a field fills it
      {2, "1", "15:1|5:59"},  {0, "0", "0|5:45:59"},  {0, "2330159", "23:30:15|"}, {0, "1:30", "01:30:|59"},
      {0, ":", "|15:45:59"},  {8, ":", "15:45:59|"},  {8, "\b\b\b", "15:4|0:00"},  {0, "\b", "|15:45:59"}};
  for (const auto& [caret, typed, after] : cases) {
    Start(caret, caret);
    Input::Type(*edit_, typed);
    const TmyString text = edit_->Text();
    const int at = Selection(*edit_).first;
    EXPECT_EQ(std::string(text.Chars(), text.Chars() + at) + "|" + (text.Chars() + at), after) << typed;
  }
}

TEST_F(TmyTimeEditTest, ArrowsGoOverFieldsAndStepThem) {
  Start(3, 8);
  const std::tuple<uint32_t, const char*, int> cases[] = {
      {VK_LEFT, "15:45:59", 3},  {VK_LEFT, "15:45:59", 0},  {VK_UP, "16:45:59", 0},
      {VK_RIGHT, "16:45:59", 3}, {VK_DOWN, "16:44:59", 3},  {VK_RIGHT, "16:44:59", 6},
      {VK_UP, "16:45:00", 6},    {VK_RIGHT, "16:45:00", 6}, {VK_PRIOR, "17:45:00", 0}};
  for (const auto& [key, text, begin] : cases) {
    Input::Key(*edit_, key);
    EXPECT_EQ(edit_->Text(), text);
    EXPECT_EQ(Selection(*edit_), std::pair(begin, begin + 2));
  }
  EXPECT_EQ(changes_, 4);
}

TEST_F(TmyTimeEditTest, NothingTakesCharactersOutOfTheMask) {
  Start(3, 8);
  SendMessageA(edit_->Handle(), WM_CUT, 0, 0);
  EXPECT_EQ(edit_->Text(), "15:00:00");
  EXPECT_EQ(ClipboardText(edit_->Handle()), "45:59");
  Start(4, 4);
  for (const int modifier : {0, VK_CONTROL, VK_SHIFT}) {
    Input::Key(*edit_, VK_DELETE, modifier);
    EXPECT_EQ(edit_->Text(), "15:40:59");
  }
  for (const char* text : {" 9:05\r\n", "24:00", "no time"}) {
    Paste(*edit_, text);
    EXPECT_EQ(edit_->Text(), "09:05:00") << text;
  }
}

TEST_F(TmyTimeEditTest, MidnightAtTheEndOfTheDayIsATimeWhereAskedFor) {
  edit_->SetValue(86400);
  EXPECT_EQ(edit_->Text(), "23:59:59");
  auto* until = Make<TmyTimeEdit>(TmyTimeEdit::Last::kMidnight);
  Retype(*until, "24");
  EXPECT_EQ(until->Value(), 86400);
  for (const char* typed : {"24:05", "1"}) {  // there is no time behind it
    SendMessageA(until->Handle(), EM_SETSEL, 0, 0);
    Input::Type(*until, typed);
  }
  EXPECT_EQ(until->Text(), "14:00:00");
}

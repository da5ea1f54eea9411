#include "toolkit/TmyTimeEdit.h"

#include "tests/toolkit/EditFixture.h"

TEST(TimeText, ReadsWhatPeopleWrite) {
  const std::pair<const char*, const char*> cases[] = {
      {"2330", "23:30:00"}, {"233015", "23:30:15"}, {"930", "09:30:00"},   {"93015", "09:30:15"},     {"9", "09:00:00"},
      {"21", "21:00:00"},   {"9:5", "09:05:00"},    {"0:0:7", "00:00:07"}, {" 23:30\r\n", "23:30:00"}};
  for (const auto& [text, time] : cases)
    EXPECT_EQ(TimeText::FormatTime(TimeText::ParseTime(text).value_or(1)), time) << text;
  for (const char* text : {"", "24:00", "2400", "23:60", "12:30:60", "1:2:3:4", "23:", ":30", "12:30:", "1234567",
                           "12.30", "-1:00", "123:00", "1 2:30", "ab"}) {
    EXPECT_EQ(TimeText::ParseTime(text), std::nullopt) << text;
  }
}

struct TmyTimeEditTest : EditFixture {
  void Start(int begin, int end, int hours = 15) {
    edit_->SetValue(hours * 3600 + 45 * 60 + 59);
    SendMessageA(edit_->Handle(), EM_SETSEL, static_cast<WPARAM>(begin), end);
    changes_ = 0;
  }

  TmyTimeEdit* edit_ = Make<TmyTimeEdit>();
};

TEST_F(TmyTimeEditTest, TypingKeepsTheMaskStartsFromZerosInASelectionAndTellsChanges) {
  const std::tuple<int, int, const char*, const char*, int> cases[] = {
      // what is selected, typed; then, with the caret as "|"; changes
      {0, 8, "2330", "23:30:|00", 3},   {3, 5, "7", "15:07:|59", 1},
      {0, 2, ":3", "15:3|5:59", 1},     {3, 8, "\b", "15:|00:00", 1},
      {0, 0, "ab-", "|15:45:59", 0},    {0, 0, "12", "12:|45:59", 1},  // the 1 stood there before
      {0, 0, "2", "2|0:45:59", 1},      {0, 0, "24", "2|0:45:59", 1},  // neither 25 nor 24 is an hour
      {0, 0, "93", "09:3|5:59", 2},     {3, 3, "6", "15:06:|59", 1},   // a digit that cannot begin a field fills it
      {2, 2, "1", "15:1|5:59", 1},      {0, 0, "2330159", "23:30:15|", 6},
      {0, 0, "1:30", "01:30:|59", 3},   {0, 0, ":", "|15:45:59", 0},
      {8, 8, "\b\b\b", "15:4|0:00", 3}, {0, 0, "\b", "|15:45:59", 0}};
  for (const auto& [begin, end, typed, after, changes] : cases) {
    Start(begin, end);
    Input::Type(*edit_, typed);
    const TmyString text = edit_->Text();
    const int caret = Selection(*edit_).first;
    EXPECT_EQ(std::string(text.Chars(), text.Chars() + caret) + "|" + (text.Chars() + caret), after) << typed;
    EXPECT_EQ(edit_->Value(), *TimeText::ParseTime(text.Chars()));
    EXPECT_EQ(changes_, changes) << typed;
  }
  Start(0, 8);
  Input::Type(*edit_, "1");
  SendMessageA(edit_->Handle(), EM_UNDO, 0, 0);
  EXPECT_EQ(edit_->Text(), "15:45:59");
}

TEST_F(TmyTimeEditTest, ArrowsGoOverFieldsAndStepThem) {
  Start(3, 8, 23);
  const std::tuple<uint32_t, const char*, int> cases[] = {
      {VK_LEFT, "23:45:59", 3},  {VK_LEFT, "23:45:59", 0}, {VK_UP, "00:45:59", 0},    {VK_DOWN, "23:45:59", 0},
      {VK_RIGHT, "23:45:59", 3}, {VK_DOWN, "23:44:59", 3}, {VK_RIGHT, "23:44:59", 6}, {VK_UP, "23:45:00", 6},
      {VK_RIGHT, "23:45:00", 6}, {VK_PRIOR, "00:45:00", 0}};
  for (const auto& [key, text, begin] : cases) {
    Input::Key(*edit_, key);
    EXPECT_EQ(edit_->Text(), text);
    EXPECT_EQ(Selection(*edit_), std::pair(begin, begin + 2));
  }
  EXPECT_EQ(changes_, 5);
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

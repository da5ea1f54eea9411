#include "toolkit/TmyFrequencyEdit.h"

#include "tests/toolkit/EditFixture.h"

// What TmyIntEdit does for all numbers is seen here, too: the form of each is that of its heirs.
struct TmyFrequencyEditTest : EditFixture {
  TmyFrequencyEdit* edit_ = Make<TmyFrequencyEdit>();
};

TEST_F(TmyFrequencyEditTest, TypedAndPastedTextsAndWhatCommittingMakesOfThem) {
  const std::tuple<const char*, const char*, int64_t, const char*> cases[] = {
      {"6.00", "6.00", 6000, "6"},
      {"6.005x M", "6.005M", 6005000, "6005"},
      {"6.005M1", "6.005M1", 6005000, "6005"},  // no frequency: the last readable one
      {"7\b\b", "", 7000, "7"},
      {"9999999", "9999999", TmyFrequencyEdit::kHighest, "4294967.295"},
  };
  for (const auto& [typed, shown, value, committed] : cases) {
    Retype(*edit_, typed);
    EXPECT_EQ(edit_->Text(), shown);
    EXPECT_EQ(edit_->Value(), value);
    Input::Key(*edit_, VK_RETURN);
    EXPECT_EQ(edit_->Text(), committed);
  }
  for (const char* text : {" 60 05\r\n", "words"}) {
    Paste(*edit_, text);
    EXPECT_EQ(edit_->Value(), 6005000) << text;
  }
}

TEST_F(TmyFrequencyEditTest, StepsByKhzAndByChannelsWithinTheReceiversBoundsAndTells) {
  edit_->SetValue(9000000);
  edit_->SetRange(9415500, 9427000);
  EXPECT_EQ(edit_->Text(), "9415.5");
  const std::tuple<uint32_t, LPARAM, int64_t, int> cases[] = {
      {VK_PRIOR, 1, 9420500, 1}, {VK_UP, 1, 9421500, 2},   {VK_PRIOR, 1, 9426500, 3}, {VK_UP, 1, 9427000, 4},
      {VK_UP, 1, 9427000, 4},    {VK_NEXT, 1, 9422000, 5}, {VK_DOWN, 1, 9421000, 6},  {VK_UP, 0x20000001, 9421000, 6}};
  for (const auto& [key, flags, value, changes] : cases) {
    Input::Key(*edit_, key, 0, flags);  // the last one with Alt
    EXPECT_EQ(edit_->Value(), value);
    EXPECT_EQ(changes_, changes);
  }
  Paste(*edit_, "31 MHz");
  SetFocus(nullptr);
  EXPECT_EQ(edit_->Text(), "9427");
}

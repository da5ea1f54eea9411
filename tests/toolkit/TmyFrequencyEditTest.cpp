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
    Input::Retype(*edit_, typed);
    EXPECT_EQ(edit_->Text(), shown);
    EXPECT_EQ(edit_->Value(), value);
    Input::Key(*edit_, VK_RETURN);
    EXPECT_EQ(edit_->Text(), committed);
  }
  const std::pair<const char*, int64_t> pasted[] = {{" 6005\r\n", 6005000},
                                                    {"words", 6005000},
                                                    {"9420 AM", 9420000},
                                                    {"on 6.005 MHz, 49 m", 6005000},
                                                    {"9 420", 9420000},
                                                    {"6005-6010", 6005000},
                                                    {"9420 0500-0600", 9420000},
                                                    {"9420, 9425", 9420000},
                                                    {"25 m", 25000},
                                                    {"9420500Hz", 9420500},
                                                    {"1,000.5 kHz", 9420500},
                                                    {".5MHz", 500000},
                                                    {"6.005\xA0MHz", 6005000},
                                                    {"9\xA0"
                                                     "420,5 kHz",
                                                     9420500},
                                                    {"1 296.2 MHz", 1296200000},
                                                    {"ca.7325", 7325000}};
  for (const auto& [text, value] : pasted) {
    edit_->SelectAll();
    Paste(*edit_, text);
    EXPECT_EQ(edit_->Value(), value) << text;
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

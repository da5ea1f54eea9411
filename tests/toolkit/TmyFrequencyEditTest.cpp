#include "toolkit/TmyFrequencyEdit.h"

#include "tests/toolkit/EditFixture.h"

struct TmyFrequencyEditTest : EditFixture {
  TmyFrequencyEdit* edit_ = Make<TmyFrequencyEdit>();
};

TEST_F(TmyFrequencyEditTest, TheValueFollowsEachCharacter) {
  const std::pair<char, int64_t> cases[] = {{'6', 6000}, {'.', 6000}, {'0', 6000},    {'0', 6000},
                                            {'5', 6005}, {'x', 6005}, {'M', 6005000}, {'1', 6005000}};
  for (const auto& [typed, value] : cases) {
    Input::Type(*edit_, {&typed, 1});
    EXPECT_EQ(edit_->Value(), value) << typed;
  }
  Input::Key(*edit_, VK_RETURN);
  EXPECT_EQ(edit_->Text(), "6005");  // "6.005M1" is no frequency
  edit_->SetValue(TmyFrequencyEdit::kHighest + 1);
  EXPECT_EQ(edit_->Text(), "4294967.295");
}

TEST_F(TmyFrequencyEditTest, StepsByKhzAndByChannelsWithinTheReceiversBounds) {
  edit_->SetRange(9415500, 9427000);
  edit_->SetValue(9420500);
  const std::pair<uint32_t, int64_t> cases[] = {
      {VK_UP, 9421500}, {VK_PRIOR, 9426500}, {VK_UP, 9427000}, {VK_NEXT, 9422000}};
  for (const auto& [key, value] : cases) {
    Input::Key(*edit_, key);
    EXPECT_EQ(edit_->Value(), value);
  }
  Paste(*edit_, "31 MHz");
  SetFocus(nullptr);
  EXPECT_EQ(edit_->Text(), "9427");
}

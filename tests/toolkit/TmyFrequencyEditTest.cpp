#include "toolkit/TmyFrequencyEdit.h"

#include "tests/toolkit/EditFixture.h"

namespace {

class TmyFrequencyEditTest : public EditFixture {
 protected:
  TmyFrequencyEdit* edit_ = Make<TmyFrequencyEdit>();
};

TEST_F(TmyFrequencyEditTest, ShowsKhzAndHoldsHz) {
  edit_->SetValue(9420500);
  EXPECT_STREQ(edit_->Text().Chars(), "9420.5");
  edit_->SetValue(TmyFrequencyEdit::kHighest + 1);
  EXPECT_STREQ(edit_->Text().Chars(), "4294967.295");
  EXPECT_EQ(changes_, 0);
}

TEST_F(TmyFrequencyEditTest, TheValueFollowsEachCharacter) {
  const struct {
    char typed;
    int64_t value;
  } cases[] = {{'6', 6000}, {'.', 6000}, {'0', 6000}, {'0', 6000}, {'5', 6005}, {'x', 6005}, {'M', 6005000}};
  edit_->SelectAll();
  for (const auto& c : cases) {
    Type(*edit_, {&c.typed, 1});
    EXPECT_EQ(edit_->Value(), c.value) << c.typed;
  }
  Type(*edit_, "1");
  EXPECT_EQ(edit_->Value(), 6005000);  // "6.005M1" is no frequency
  Input::Key(*edit_, VK_RETURN);
  EXPECT_STREQ(edit_->Text().Chars(), "6005");
}

TEST_F(TmyFrequencyEditTest, StepsByKhzAndByChannels) {
  edit_->SetValue(9420500);
  const std::pair<uint32_t, int64_t> cases[] = {
      {VK_UP, 9421500}, {VK_PRIOR, 9426500}, {VK_NEXT, 9421500}, {VK_DOWN, 9420500}};
  for (const auto& [key, value] : cases) {
    Input::Key(*edit_, key);
    EXPECT_EQ(edit_->Value(), value);
  }
  edit_->SetValue(300);
  Input::Key(*edit_, VK_DOWN);
  EXPECT_EQ(edit_->Value(), 0);
}

TEST_F(TmyFrequencyEditTest, KeepsToTheReceiversBounds) {
  auto* bounded = Make<TmyFrequencyEdit>(int64_t{100000}, int64_t{30000000});
  EXPECT_STREQ(bounded->Text().Chars(), "100");
  bounded->SelectAll();
  Paste(*bounded, "31 MHz");
  EXPECT_STREQ(bounded->Text().Chars(), "31MHz");
  SetFocus(nullptr);
  EXPECT_STREQ(bounded->Text().Chars(), "30000");
}

}  // namespace

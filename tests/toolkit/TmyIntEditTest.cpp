#include "toolkit/TmyIntEdit.h"

#include "tests/toolkit/EditFixture.h"

struct TmyIntEditTest : EditFixture {
  TmyIntEdit* edit_ = Make<TmyIntEdit>(int64_t{-50}, int64_t{500});
};

TEST_F(TmyIntEditTest, TypedAndPastedTextsAndWhatCommittingMakesOfThem) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"007", "007", "7"},   {"1a.2 b3", "123", "123"}, {"501", "501", "500"},
      {"-51", "-51", "-50"}, {"12-", "12-", "12"},      {"12\b\b", "", "1"},  // unreadable: the last readable one
  };
  for (const auto& [typed, shown, committed] : cases) {
    edit_->SetValue(0);
    Retype(*edit_, typed);
    EXPECT_EQ(edit_->Text(), shown);
    Input::Key(*edit_, VK_RETURN);
    EXPECT_EQ(edit_->Text(), committed);
  }
  Paste(*edit_, "99999999999999999999");
  EXPECT_EQ(edit_->Value(), 500);
  for (const char* text : {" 1 2\r\n3 kg", "words"}) {
    Paste(*edit_, text);
    EXPECT_EQ(edit_->Text(), "123") << text;
  }
}

TEST_F(TmyIntEditTest, StepsWithinTheBoundsAndTells) {
  const std::tuple<int64_t, uint32_t, int64_t> cases[] = {{495, VK_UP, 496}, {495, VK_PRIOR, 500}, {500, VK_UP, 500},
                                                          {0, VK_DOWN, -1},  {500, VK_NEXT, 490},  {-45, VK_NEXT, -50}};
  for (const auto& [from, key, value] : cases) {
    edit_->SetValue(from);
    changes_ = 0;
    Input::Key(*edit_, key);
    EXPECT_EQ(edit_->Text(), TmyString::FromDecimal(value));
    EXPECT_EQ(changes_, from == value ? 0 : 1) << key << " from " << from;
  }
  Input::Key(*edit_, VK_UP, 0, 0x20000001);  // with Alt
  EXPECT_EQ(edit_->Value(), -50);
  edit_->SetRange(INT64_MIN, INT64_MAX);
  edit_->SetValue(INT64_MAX - 3);
  Input::Key(*edit_, VK_PRIOR);
  EXPECT_EQ(edit_->Value(), INT64_MAX);
}

TEST_F(TmyIntEditTest, NewBoundsMoveTheValue) {
  edit_->SetRange(600, 10);
  EXPECT_EQ(edit_->Value(), 600);
  Retype(*edit_, "-1");
  EXPECT_EQ(edit_->Text(), "1");  // no minus where no number has one
  SetFocus(nullptr);
  EXPECT_EQ(edit_->Text(), "600");
}

#include "toolkit/TmyIntEdit.h"

#include "tests/toolkit/EditFixture.h"

namespace {

class TmyIntEditTest : public EditFixture {
 protected:
  TmyIntEdit* edit_ = Make<TmyIntEdit>(int64_t{-50}, int64_t{500});
};

TEST_F(TmyIntEditTest, TypedTextsAndWhatCommittingMakesOfThem) {
  const struct {
    const char *typed, *shown;
    int64_t value;
    const char* committed;
  } cases[] = {
      {"007", "007", 7, "7"},     {"1a.2 b3", "123", 123, "123"}, {"501", "501", 500, "500"},
      {"-51", "-51", -50, "-50"}, {"12-", "12-", 12, "12"},  // unreadable: the last readable one
      {"12\b\b", "", 1, "1"},
  };
  for (const auto& c : cases) {
    edit_->SetValue(0);
    Retype(*edit_, c.typed);
    EXPECT_STREQ(edit_->Text().Chars(), c.shown);
    EXPECT_EQ(edit_->Value(), c.value) << c.typed;
    Input::Key(*edit_, VK_RETURN);
    EXPECT_STREQ(committedText_.Chars(), c.committed) << c.typed;
  }
  edit_->SetValue(0);
  edit_->SelectAll();
  Paste(*edit_, "99999999999999999999");
  EXPECT_EQ(edit_->Value(), 500);
  changes_ = 0;
  edit_->SelectAll();
  Paste(*edit_, " 1 2\r\n3 kg");
  Paste(*edit_, "words");
  EXPECT_STREQ(edit_->Text().Chars(), "123");
  EXPECT_EQ(changes_, 1);
}

TEST_F(TmyIntEditTest, StepsWithinTheBoundsAndTells) {
  const struct {
    int64_t from;
    uint32_t key;
    int64_t value;
    int changes;
  } cases[] = {{495, VK_UP, 496, 1},   {495, VK_PRIOR, 500, 1}, {500, VK_UP, 500, 0},
               {500, VK_NEXT, 490, 1}, {0, VK_DOWN, -1, 1},     {-45, VK_NEXT, -50, 1}};
  for (const auto& c : cases) {
    edit_->SetValue(c.from);
    changes_ = 0;
    Input::Key(*edit_, c.key);
    EXPECT_EQ(edit_->Text(), TmyString::FromDecimal(c.value));
    EXPECT_EQ(changes_, c.changes) << c.key << " from " << c.from;
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
  EXPECT_STREQ(edit_->Text().Chars(), "1");  // no minus where no number has one
  SetFocus(nullptr);
  EXPECT_STREQ(edit_->Text().Chars(), "600");
}

}  // namespace

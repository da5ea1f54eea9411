#include "toolkit/TmyIntEdit.h"

#include "tests/toolkit/EditFixture.h"

namespace {

class TmyIntEditTest : public EditFixture {
 protected:
  TmyIntEdit* edit_ = Make<TmyIntEdit>(int64_t{-50}, int64_t{500});

  void Retype(std::string_view text) {
    edit_->SelectAll();
    Type(*edit_, text);
  }
};

TEST_F(TmyIntEditTest, TypedTextsAndWhatCommittingMakesOfThem) {
  const struct {
    const char* typed;
    const char* shown;
    int64_t value;
    const char* committed;
  } cases[] = {
      {"123", "123", 123, "123"},
      {"-7", "-7", -7, "-7"},
      {"007", "007", 7, "7"},
      {"1a.2 b3", "123", 123, "123"},
      {"501", "501", 500, "500"},
      {"-51", "-51", -50, "-50"},
      {"99999999999999999999", "99999999999999999999", 500, "500"},
      {"-99999999999999999999", "-99999999999999999999", -50, "-50"},
      {"12-", "12-", 12, "12"},  // unreadable: the last readable one
      {"12\b\b", "", 1, "1"},
  };
  for (const auto& c : cases) {
    edit_->SetValue(0);
    Retype(c.typed);
    EXPECT_STREQ(edit_->Text().Chars(), c.shown);
    EXPECT_EQ(edit_->Value(), c.value) << c.typed;
    Input::Key(*edit_, VK_RETURN);
    EXPECT_STREQ(edit_->Text().Chars(), c.committed) << c.typed;
    EXPECT_STREQ(committedText_.Chars(), c.committed);
  }
}

TEST_F(TmyIntEditTest, StepsWithinTheBoundsAndTells) {
  edit_->SetValue(495);
  const struct {
    uint32_t key;
    int64_t value;
    int changes;
  } cases[] = {{VK_UP, 496, 1}, {VK_PRIOR, 500, 2}, {VK_UP, 500, 2}, {VK_NEXT, 490, 3}, {VK_DOWN, 489, 4}};
  for (const auto& c : cases) {
    Input::Key(*edit_, c.key);
    EXPECT_EQ(edit_->Value(), c.value);
    EXPECT_EQ(edit_->Text(), TmyString::FromDecimal(c.value));
    EXPECT_EQ(changes_, c.changes);
  }
  Input::Key(*edit_, VK_UP, 0, 0x20000001);  // with Alt
  EXPECT_EQ(edit_->Value(), 489);
  SetFocus(nullptr);
  EXPECT_EQ(commits_, 1);
}

TEST_F(TmyIntEditTest, StepsAtTheEndsOfTheNumbers) {
  edit_->SetRange(INT64_MIN, INT64_MAX);
  edit_->SetValue(INT64_MAX - 3);
  Input::Key(*edit_, VK_PRIOR);
  EXPECT_EQ(edit_->Value(), INT64_MAX);
  edit_->SetValue(INT64_MIN + 3);
  Input::Key(*edit_, VK_NEXT);
  EXPECT_EQ(edit_->Value(), INT64_MIN);
}

TEST_F(TmyIntEditTest, NewBoundsMoveTheValueQuietly) {
  edit_->SetValue(400);
  edit_->SetRange(0, 100);
  EXPECT_STREQ(edit_->Text().Chars(), "100");
  edit_->SetRange(200, 10);
  EXPECT_EQ(edit_->Value(), 200);
  Retype("-1");
  EXPECT_STREQ(edit_->Text().Chars(), "1");  // no minus where no number has one
  SetFocus(nullptr);
  EXPECT_STREQ(edit_->Text().Chars(), "200");
}

TEST_F(TmyIntEditTest, PastesTheDigitsOnly) {
  edit_->SelectAll();
  Paste(*edit_, " 1 2\r\n3 kg");
  EXPECT_EQ(edit_->Value(), 123);
  Paste(*edit_, "words");
  EXPECT_STREQ(edit_->Text().Chars(), "123");
  EXPECT_EQ(changes_, 1);
}

}  // namespace

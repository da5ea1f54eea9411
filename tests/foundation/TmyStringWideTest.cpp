#include <gtest/gtest.h>

#include "foundation/TmyString.h"

namespace {

TEST(TmyStringWide, BecomesAnsiText) {
  const struct {
    const wchar_t* wide;
    const char* expected;
  } kCases[] = {{nullptr, ""}, {L"", ""}, {L"eibi", "eibi"}, {L"caf\u00e9", "caf\xE9"}, {L"\u4e2d!", "?!"}};
  for (const auto& row : kCases) {
    const TmyString text(row.wide);
    EXPECT_EQ(text, row.expected);
    EXPECT_EQ(text.Capacity(), text.Length() + 1) << row.expected;
  }
}

}  // namespace

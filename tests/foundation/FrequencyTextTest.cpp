#include "foundation/FrequencyText.h"

#include <gtest/gtest.h>

namespace {

TEST(FrequencyText, ReadsWhatPeopleWrite) {
  constexpr int64_t kNone = -1;
  const struct {
    const char* text;
    int64_t hz;
  } cases[] = {
      {"6005", 6005000},
      {"9420.5", 9420500},
      {"9420,5", 9420500},
      {"9420.125", 9420125},
      {"9420.", 9420000},
      {".5", 500},
      {"0", 0},
      {" 6005 ", 6005000},
      {"6005k", 6005000},
      {"6005 kHz", 6005000},
      {"6.005M", 6005000},
      {"6.005m", 6005000},
      {"6,005001MHZ", 6005001},
      {"9420.5000", 9420500},
      {"9420.1234", kNone},
      {"6.0050001M", kNone},
      {"", kNone},
      {" ", kNone},
      {".", kNone},
      {"k", kNone},
      {"MHz", kNone},
      {"6005Hz", kNone},
      {"6005kk", kNone},
      {"60k05", kNone},
      {"6 005", kNone},
      {"1,000.5", kNone},
      {"-6005", kNone},
      {"+6005", kNone},
      {"abc", kNone},
      {"9223372036854775.807", INT64_MAX},
      {"9223372036854775.808", kNone},
      {"9223372036854775807", kNone},
      {"99999999999999999999999999", kNone},
      {"9223372036854.775807M", INT64_MAX},
  };
  for (const auto& c : cases) EXPECT_EQ(ParseFrequency(c.text).value_or(kNone), c.hz) << c.text;
}

TEST(FrequencyText, WritesNoMoreDecimalsThanNeeded) {
  const struct {
    int64_t hz;
    const char* text;
  } cases[] = {{0, "0"},
               {9420000, "9420"},
               {9420500, "9420.5"},
               {9420050, "9420.05"},
               {9420001, "9420.001"},
               {999, "0.999"},
               {-1500, "-1.5"},
               {INT64_MAX, "9223372036854775.807"},
               {INT64_MIN, "-9223372036854775.808"}};
  for (const auto& c : cases) EXPECT_STREQ(FormatKhz(c.hz).Chars(), c.text);
}

}  // namespace

#include "foundation/FrequencyText.h"

#include "tests/support/Test.h"

TEST(FrequencyText, ReadsWhatPeopleWrite) {
  std::vector<int64_t> read;
  for (const char* text : {"9420,125", "9420.", ".5", "0", " 6005 ", "6005k", "6005000hz", "6.005m", "6,005001MHZ",
                           "9420.5000", "9223372036854775.807", "9223372036854.775807M"}) {
    read.push_back(ParseFrequency(text).value_or(-1));
  }
  EXPECT_THAT(read, testing::ElementsAre(9420125, 9420000, 500, 0, 6005000, 6005000, 6005000, 6005000, 6005001, 9420500,
                                         INT64_MAX, INT64_MAX));
  for (const char* text : {"", " ", ".", "MHz", "60.5Hz", "6005kk", "60k05", "6 005", "1,000.5", "-6005", "+6005",
                           "9420.1234", "6.0050001M", "9223372036854775.808", "9223372036854775807"}) {
    EXPECT_FALSE(ParseFrequency(text).has_value()) << text;
  }
}

TEST(FrequencyText, WritesNoMoreDecimalsThanNeeded) {
  std::vector<std::string> written;
  for (const int64_t hz : {0LL, 9420000LL, 9420500LL, 9420050LL, 9420001LL, -1500LL, INT64_MIN})
    written.emplace_back(FormatKhz(hz).View());
  written.emplace_back(FormatUnsignedKhz(UINT64_MAX).View());
  EXPECT_THAT(written, testing::ElementsAre("0", "9420", "9420.5", "9420.05", "9420.001", "-1.5",
                                            "-9223372036854775.808", "18446744073709551.615"));
}

#include "schedule/EibiItem.h"

#include "tests/support/EibiLine.h"
#include "tests/support/Test.h"

// That lines of any length are cut where they should be is tested with a plain cut, see fuzz/EibiLine.cpp; that the
// flags of the days say what the mask says, in fuzz/EibiChecks.h. Unknown codes set nothing and add nothing, free text
// stays. Digits that are no day are passed over; what "%d" would not write back is free text.
TEST(EibiItem, ReadsEveryFormOfTheDaysField) {
  const std::tuple<const char*, const char*, uint8_t> kCases[] = {
      {"", "All days", 0x7F},     {"Mo-Fr", "Workdays", 0x3E},
      {"Sa-Su", "Weekend", 0x41}, {"Fr-Mo", "Fri-Mon", 0x63},
      {"We-We", "Wed-Wed", 0x7F}, {"We,Sa", "Wed, Sat", 0x48},
      {"Tu", "Tuesday", 0x04},    {"Fr-Xx", "Fri", 0x20},
      {"Tests", "Tests", 0},      {"1.Sa", "1.Sa", 0},
      {"57", "Fri, Sun", 0x21},   {"-1359", "Mon, Wed, Fri", 0x2A},
      {"012", "012", 0},          {"\xFC\xFF\x80", "\xFC\xFF\x80", 0}};
  for (const auto& [field, text, mask] : kCases) {
    EibiItem item;
    item.SetDays("1234567");  // a field must leave nothing of the one before
    item.SetDays(field);
    EXPECT_STREQ(item.daysText, text) << field;
    EXPECT_EQ(item.dayMask, mask) << field;
    EXPECT_STREQ(item.rawDays, std::string(field).substr(0, 9).c_str());
  }
}

TEST(EibiItem, ReadsFrequenciesAsHertz) {
  std::vector<int32_t> hertz;
  for (const char* text : {"6005", "9420.5", "19.58", "0.0015", ".5", "5.", "0006005", "16680.3", "16777.217",
                           "12345.6789", "6005k", "6e3", "+6005", "-5", "2147483", "1.2.3"}) {
    EibiItem item;
    EXPECT_TRUE(item.Parse(EibiLine(text))) << text;
    EXPECT_STREQ(item.frequencyText, text);
    hertz.push_back(item.frequency);
  }
  // In single precision the nearest number to 16680.3 is 16680.30078.
  EXPECT_THAT(hertz, testing::ElementsAre(6005000, 9420500, 19580, 2, 500, 5000, 6005000, 16680301, 16777217, 12345679,
                                          6005000, 6000000, 6005000, -5000, 2147483000, 1200));
  for (const char* text :
       {"0.0004", "2147484", "-2147484", "1e30", "-1e39", "nan", "inf", "", ".", "0", "0.0", "kHz"}) {
    EibiItem item;
    EXPECT_FALSE(item.Parse(EibiLine(text))) << text;
    EXPECT_EQ(item.valid, 0U) << text;
  }
}

TEST(EibiItem, ReadsTimes) {
  const std::tuple<const char*, int32_t, int32_t, const char*, const char*> kCases[] = {
      {"0000-2400", 0, 86400, "00:00", "24:00"},
      {"2200-0100", 79200, 3600, "22:00", "01:00"},
      {"", -1, -1, "-", "-"},
      {"9 30-1 5", 34200, 3900, "9 :30", "1 :5"},
      {"+1-1-- 9", 3540, 540, "+1:-1", "- :9"},
      {"22", 79200, 0, "22:", ":"},
      {"9999-9999", 362340, 362340, "99:99", "99:99"},
      {"abcd-1x2y", 0, 3720, "ab:cd", "1x:2y"},
      {"0900/10005", 32400, 36000, "09:00", "10:00"}};
  for (const auto& [field, start, end, startText, endText] : kCases) {
    EibiItem item;
    ASSERT_TRUE(item.Parse(EibiLine("6005", field))) << field;
    EXPECT_EQ(item.start, start) << field;
    EXPECT_EQ(item.end, end) << field;
    EXPECT_STREQ(item.startText, startText) << field;
    EXPECT_STREQ(item.endText, endText) << field;
  }
}

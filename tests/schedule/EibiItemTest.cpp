#include "schedule/EibiItem.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "schedule/DayTime.h"

namespace {

// A line with the given fields in their columns.
std::string LineOf(const std::string& frequency, const std::string& time = "0900-1000", const std::string& days = "") {
  const auto padded = [](std::string text, size_t width) {
    text.resize(width, ' ');
    return text;
  };
  return padded(frequency, 14) + padded(time, 10) + padded(days, 6) + "D   " + padded("Radio Example", 25) + "E   " +
         padded("CEu", 12) + "ka";
}

std::string FlagsText(const EibiItem& item) {
  std::string text;
  for (const uint8_t flag : item.dayFlags) text += flag ? '1' : '0';
  return text;
}

}  // namespace

TEST(EibiItem, ReadsEveryFormOfTheDaysField) {
  const struct {
    const char* field;
    const char* text;
    const char* flags;  // Monday first
    uint8_t mask;
  } kCases[] = {
      {"", "All days", "1111111", 0x7F},
      {"Mo-Fr", "Workdays", "1111100", 0x3E},
      {"12345", "Workdays", "1111100", 0x3E},
      {"Sa,Su", "Weekend", "0000011", 0x41},
      {"SaSu", "Weekend", "0000011", 0x41},
      {"Sa-Su", "Weekend", "0000011", 0x41},
      {"67", "Weekend", "0000011", 0x41},
      {"135", "Mon, Wed, Fri", "1010100", 0x2A},
      {"7", "Sun", "0000001", 0x01},
      {"1234567", "Mon, Tue, Wed, Thu, Fri, Sat, Sun", "1111111", 0x7F},
      {"Fr-Mo", "Fri-Mon", "1000111", 0x63},
      {"Su-Sa", "Sun-Sat", "1111111", 0x7F},
      {"We-We", "Wed-Wed", "1111111", 0x7F},
      {"We,Sa", "Wed, Sat", "0010010", 0x48},
      {"TuTh", "Tue, Thu", "0101000", 0x14},
      {"Tu", "Tuesday", "0100000", 0x04},
      // Unknown codes set nothing and add nothing.
      {"Xx-Fr", "", "0000000", 0},
      {"Fr-Xx", "Fri", "0000100", 0x20},
      {"Xx,Fr", "Fri", "0000100", 0x20},
      {"FrXx", "Fri", "0000100", 0x20},
      {"Xx", "", "0000000", 0},
      {"harm", "", "0000000", 0},
      {"mo-fr", "", "0000000", 0},
      // Free text stays.
      {"irr", "irr", "0000000", 0},
      {"1.Sa", "1.Sa", "0000000", 0},
      {"Tests", "Tests", "0000000", 0},
      // Digits that are no day are passed over; what "%d" would not write back is free text.
      {"0", "", "0000000", 0},
      {"9128", "Mon, Tue", "1100000", 0x06},
      {"-135", "Mon, Wed, Fri", "1010100", 0x2A},
      {"2147483647", "Tue, Mon, Thu, Sun, Thu, Wed, Sat, Thu, Sun", "1111011", 0x5F},
      {"2147483648", "2147483648", "0000000", 0},
      {"-2147483648", "Tue, Mon, Thu, Sun, Thu, Wed, Sat, Thu", "1111011", 0x5F},
      {"012", "012", "0000000", 0},
      {"+12", "+12", "0000000", 0},
      {"-0", "", "0000000", 0},
      {"12345678901", "12345678901", "0000000", 0},
      {"\xFC\xFF\x80", "\xFC\xFF\x80", "0000000", 0},
  };
  for (const auto& each : kCases) {
    EibiItem item;
    item.SetDays("1234567");  // a field must leave nothing of the one before
    item.SetDays(each.field);
    EXPECT_STREQ(item.daysText, each.text) << each.field;
    EXPECT_EQ(FlagsText(item), each.flags) << each.field;
    EXPECT_EQ(item.dayMask, each.mask) << each.field;
    EXPECT_STREQ(item.rawDays, std::string(each.field).substr(0, 9).c_str());
  }
}

TEST(EibiItem, CutsDaysToTheirFields) {
  EibiItem item;
  item.SetDays(std::string(5000, 'x'));
  EXPECT_EQ(strlen(item.rawDays), 9U);
  EXPECT_EQ(strlen(item.daysText), 99U);
  EXPECT_EQ(item.dayMask, 0);
}

TEST(EibiItem, ReadsFrequenciesAsHertz) {
  const struct {
    const char* text;
    int32_t hertz;  // 0: the line is no record
  } kCases[] = {
      {"6005", 6005000},
      {"9420.5", 9420500},
      {"7325.5", 7325500},
      {"19.58", 19580},
      {"3330.25", 3330250},
      {"0.0004", 0},
      {"0.0015", 2},
      {".5", 500},
      {"5.", 5000},
      {"0006005", 6005000},
      {"16680.3", 16680301},  // single precision: the nearest number is 16680.30078
      {"16777.217", 16777217},
      {"12345.6789", 12345679},
      {"6005k", 6005000},
      {"6e3", 6000000},
      {"+6005", 6005000},
      {"-5", -5000},
      {"2147483", 2147483000},
      {"2147484", 0},
      {"-2147484", 0},
      {"1e30", 0},
      {"-1e39", 0},
      {"nan", 0},
      {"inf", 0},
      {"", 0},
      {".", 0},
      {"0", 0},
      {"0.0", 0},
      {"kHz", 0},
      {"1.2.3", 1200},
  };
  for (const auto& each : kCases) {
    EibiItem item;
    EXPECT_EQ(item.Parse(LineOf(each.text)), each.hertz != 0) << each.text;
    EXPECT_EQ(item.valid, each.hertz != 0 ? 1U : 0U) << each.text;
    if (each.hertz == 0) continue;
    EXPECT_EQ(item.frequency, each.hertz) << each.text;
    EXPECT_STREQ(item.frequencyText, each.text);
  }
}

TEST(EibiItem, ReadsTimes) {
  const struct {
    const char* field;
    int32_t start, end;
    const char* startText;
    const char* endText;
  } kCases[] = {
      {"0000-2400", 0, 86400, "00:00", "24:00"},       {"2200-0100", 79200, 3600, "22:00", "01:00"},
      {" 1234-2359", 45240, 86340, "12:34", "23:59"},  {"", -1, -1, "-", "-"},
      {"0900/1000", 32400, 36000, "09:00", "10:00"},   {"9 30-1 5", 34200, 3900, "9 :30", "1 :5"},
      {"+1-1-- 9", 3540, 540, "+1:-1", "- :9"},        {"22", 79200, 0, "22:", ":"},
      {"9999-9999", 362340, 362340, "99:99", "99:99"}, {"abcd-1x2y", 0, 3720, "ab:cd", "1x:2y"},
      {"0900-10005", 32400, 36000, "09:00", "10:00"},
  };
  for (const auto& each : kCases) {
    EibiItem item;
    ASSERT_TRUE(item.Parse(LineOf("6005", each.field))) << each.field;
    EXPECT_EQ(item.start, each.start) << each.field;
    EXPECT_EQ(item.end, each.end) << each.field;
    EXPECT_STREQ(item.startText, each.startText) << each.field;
    EXPECT_STREQ(item.endText, each.endText) << each.field;
  }
}

TEST(EibiItem, TakesLinesFrom63CharactersOn) {
  const std::string line = LineOf("6005");
  for (const size_t length : {size_t{0}, size_t{1}, size_t{17}, size_t{62}}) {
    // A copy of exactly this size: a sanitizer sees every read behind it.
    const std::vector<char> exact(line.begin(), line.begin() + static_cast<ptrdiff_t>(length));
    EibiItem item;
    EXPECT_FALSE(item.Parse({exact.data(), length})) << length;
    EXPECT_EQ(item.valid, 0U);
  }
  const struct {
    size_t length;
    const char* target;
    const char* remarks;
  } kCases[] = {{63, "", ""}, {64, "C", ""}, {66, "CEu", ""}, {75, "CEu", ""}, {76, "CEu", "k"}, {77, "CEu", "ka"}};
  for (const auto& each : kCases) {
    EibiItem item;
    ASSERT_TRUE(item.Parse(std::string(line, 0, each.length))) << each.length;
    EXPECT_STREQ(item.itu, "D");
    EXPECT_STREQ(item.station, "Radio Example");
    EXPECT_STREQ(item.language, "E");
    EXPECT_STREQ(item.target, each.target) << each.length;
    EXPECT_STREQ(item.remarks, each.remarks) << each.length;
  }
}

TEST(EibiItem, CutsAndTrimsOverfullColumns) {
  std::string line = LineOf("6005");
  line.replace(30, 45, std::string(45, 'x'));
  line += std::string(10000, 'y');
  EibiItem item;
  ASSERT_TRUE(item.Parse(line));
  EXPECT_EQ(item.itu, std::string(4, 'x'));
  EXPECT_EQ(item.station, std::string(25, 'x'));
  EXPECT_EQ(item.language, std::string(4, 'x'));
  EXPECT_EQ(item.target, std::string(9, 'x'));
  EXPECT_EQ(item.remarks, "ka" + std::string(17, 'y'));
  // Bytes above 0x7F go with the blanks at the ends of a field and stay inside it.
  const std::string station =
      "\xC5"
      "land \xE9 Radio\xF6";
  line.replace(34, 25, station + std::string(25 - station.size(), ' '));
  ASSERT_TRUE(item.Parse(line));
  EXPECT_STREQ(item.station, "land \xE9 Radio");
}

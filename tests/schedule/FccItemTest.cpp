#include "schedule/FccItem.h"

#include <gtest/gtest.h>

#include <array>

namespace {

// A record of one cell.
FccItem With(HfccColumn column, const char* cell) {
  std::array<const char*, kHfccColumns> cells{};
  cells[static_cast<uint32_t>(column)] = cell;
  FccItem item;
  item.SetCells(cells.data());
  return item;
}

}  // namespace

TEST(FccItem, ReadsNumbers) {
  const struct {
    const char* text;
    int32_t hertz;
    uint32_t power;
  } kCases[] = {{"9420", 9420000, 9420},
                {"0.5", 0, 0},
                {"130,178", 130000, 130},
                {"ND", 0, 0},
                {"-5", -5000, 0},
                {"99999", 99999000, 65535},
                {"9999999999999", 2147483000, 65535}};
  for (const auto& each : kCases) {
    const FccItem item = With(HfccColumn::kFrequency, each.text);
    EXPECT_EQ(item.frequency, each.hertz) << each.text;
    EXPECT_STREQ(item.frequencyText, each.text);
    EXPECT_EQ(With(HfccColumn::kPower, each.text).power, each.power) << each.text;
    EXPECT_EQ(With(HfccColumn::kAzimuth, each.text).azimuth, each.power) << each.text;
  }
}

TEST(FccItem, ReadsTimesAndDates) {
  const struct {
    const char* cell;
    int32_t seconds;
    const char* text;
  } kTimes[] = {{"1234", 45240, "12:34"}, {"2400", 86400, "24:00"}, {"0000", 0, "00:00"},     {"1", 3600, "1:"},
                {"123", 43380, "12:3"},   {"xx30", 1800, "xx:30"},  {"12345", 45240, "12:34"}};
  for (const auto& each : kTimes) {
    const FccItem item = With(HfccColumn::kEnd, each.cell);
    EXPECT_EQ(item.end, each.seconds) << each.cell;
    EXPECT_STREQ(item.endText, each.text);
    EXPECT_EQ(item.start, 0);
    EXPECT_STREQ(item.startText, "");
  }
  const struct {
    const char* cell;
    int32_t number;
    const char* text;
  } kDates[] = {{"150312", 4572, "15/03/12"},
                {"1503", 108, "15/03"},
                {"1", 1, "1"},
                {"xxyyzz", 0, "xx/yy/zz"},
                {"1503129", 4572, "15/03/12"}};
  for (const auto& each : kDates) {
    const FccItem item = With(HfccColumn::kStartDate, each.cell);
    EXPECT_EQ(item.startDate, each.number) << each.cell;
    EXPECT_STREQ(item.startDateText, each.text);
    EXPECT_EQ(item.endDate, 0);
    EXPECT_STREQ(item.endDateText, "");
  }
}

TEST(FccItem, NamesDaysAndModulations) {
  const struct {
    HfccColumn column;
    const char* cell;
    uint8_t mask;
    const char* text;
  } kCases[] = {
      {HfccColumn::kDays, "1", 0x01, "Sunday"},
      {HfccColumn::kDays, "7", 0x40, "Saturday"},
      {HfccColumn::kDays, "1234567", 0x7F, "All days"},
      {HfccColumn::kDays, "23456", 0x3E, "Workdays"},
      {HfccColumn::kDays, "71", 0x41, "Weekend"},
      {HfccColumn::kDays, "135", 0x15, "135"},
      {HfccColumn::kDays, "089", 0, "089"},
      {HfccColumn::kDays, nullptr, 0, ""},
      {HfccColumn::kModulation, "D", 'D', "Double sideband AM"},
      {HfccColumn::kModulation, "N", 'N', "Digital (DRM)"},
      {HfccColumn::kModulation, "Tx", 'T', "Single sideband, reduced carrier"},
      {HfccColumn::kModulation, "Qx", 'Q', "Qx"},
      {HfccColumn::kModulation, "\xE4", 0xE4, "\xE4"},
      {HfccColumn::kModulation, nullptr, 0, ""},
  };
  for (const auto& each : kCases) {
    const FccItem item = With(each.column, each.cell);
    const bool isDays = each.column == HfccColumn::kDays;
    EXPECT_EQ(isDays ? item.dayMask : static_cast<uint8_t>(item.modulation), each.mask) << each.text;
    EXPECT_STREQ(isDays ? item.daysText : item.modulationName, each.text);
  }
}

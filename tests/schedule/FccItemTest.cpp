#include "schedule/FccItem.h"

#include "tests/support/Test.h"

namespace {

using enum HfccColumn;

// A record of one cell.
FccItem With(HfccColumn column, const char* cell) {
  const char* cells[kHfccColumns] = {};
  cells[static_cast<uint32_t>(column)] = cell;
  FccItem item;
  item.SetCells(cells);
  return item;
}

}  // namespace

TEST(FccItem, ReadsNumbers) {
  const std::tuple<const char*, int32_t, uint32_t> kCases[] = {{"9420", 9420000, 9420},
                                                               {"0.5", 0, 0},
                                                               {"ND", 0, 0},
                                                               {"99999", 99999000, 65535},
                                                               {"9999999999999", 2147483000, 65535}};
  for (const auto& [text, hertz, power] : kCases) {
    EXPECT_EQ(With(kFrequency, text).frequency, hertz) << text;
    EXPECT_STREQ(With(kFrequency, text).frequencyText, text);
    EXPECT_EQ(With(kPower, text).power, power) << text;
    EXPECT_EQ(With(kAzimuth, text).azimuth, power) << text;
  }
}

TEST(FccItem, ReadsTimesDatesDaysAndModulations) {
  const struct {
    HfccColumn column;
    const char* cell;
    int32_t number;
    const char* text;
  } kCases[] = {{kEnd, "1234", 45240, "12:34"},     {kEnd, "1", 3600, "1:"},
                {kEnd, "xx30", 1800, "xx:30"},      {kStartDate, "150312", 4572, "15/03/12"},
                {kStartDate, "1503", 108, "15/03"}, {kDays, "1", 0x01, "Sunday"},
                {kDays, "7", 0x40, "Saturday"},     {kDays, "71", 0x41, "Weekend"},
                {kDays, "135", 0x15, "135"},        {kDays, "089", 0, "089"},
                {kModulation, "Qx", 'Q', "Qx"},     {kModulation, nullptr, 0, ""}};
  for (const auto& each : kCases) {
    const FccItem item = With(each.column, each.cell);
    // Only one of each is there.
    EXPECT_EQ(item.start + item.end + item.startDate + item.endDate + item.dayMask + item.modulation, each.number);
    EXPECT_EQ(std::string(item.startText) + item.endText + item.startDateText + item.endDateText + item.daysText +
                  item.modulationName,
              each.text);
  }
}

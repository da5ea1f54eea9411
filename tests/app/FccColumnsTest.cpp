#include "app/FccColumns.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/support/SeasonArchive.h"

namespace {

constexpr ShownZone kUtc;

FccItem ItemOf(const char* start, const char* stop) {
  const char* cells[kHfccColumns] = {"9420", start,    stop,     "28,38", "XYZ",   "170",   "285,100", "slew",
                                     "17",   "310526", "300826", "N",     "9500",  "Ell",   "GRC",     "MIR",
                                     "FMA",  "4347",   "o",      "9935",  "11645", "15630", "by day"};
  FccItem item;
  item.SetCells(cells);
  item.latitude = "10N20";
  item.longitude = "030E40";
  return item;
}

std::string Cell(const HfccDatabase& database, const FccItem& item, uint32_t field, const ShownZone& zone = kUtc) {
  CellBuffer buffer;
  const std::string_view text = FccCellText(database, item, FccColumnOf(field), zone, buffer);
  EXPECT_EQ(text.data()[text.size()], 0);
  return std::string(text);
}

// What makes texts of numeric columns comparable, made from the text alone.
long Key(uint32_t field, const std::string& text) {
  if (field == 9 || field == 10) return atol((text.substr(6) + text.substr(3, 2) + text.substr(0, 2)).c_str());
  if (field == 1 || field == 2) return atol(text.c_str()) * 60 + atol(text.c_str() + 3);
  return atol(text.c_str());
}

}  // namespace

TEST(FccColumns, ShowTheTextsOfARecord) {
  const struct {
    uint32_t field;
    const char* title;
    const char* text;
  } kCases[] = {
      {0, "Freq", "9420"},         {1, "Start", "05:00"},   {2, "Stop", "24:00"},      {3, "CIRAF zones", "28,38"},
      {4, "Location", "XYZ"},      {5, "Power", "170"},     {6, "Azimuth", "285,100"}, {7, "Latitude", "10N20"},
      {8, "Days", "Weekend"},      {9, "From", "31/05/26"}, {10, "To", "30/08/26"},    {11, "Mode", "Digital (DRM)"},
      {12, "Longitude", "030E40"}, {13, "Language", "Ell"}, {14, "Admin", "GRC"},      {15, "Broadcaster", "MIR"},
      {16, "FMO", "FMA"},          {18, "Old", "o"},        {19, "Alt 1", "9935"},     {20, "Alt 2", "11645"},
      {21, "Alt 3", "15630"},      {22, "Notes", "by day"}, {17, "Freq", "9420"},      {23, "Freq", "9420"},
      {0xFFFFFFFF, "Freq", "9420"}};
  const HfccDatabase empty;  // has no names
  const FccItem item = ItemOf("0500", "2400");
  for (const auto& each : kCases) {
    EXPECT_STREQ(FccColumnOf(each.field).title, each.title) << each.field;
    EXPECT_EQ(Cell(empty, item, each.field), each.text) << each.field;
  }
  for (uint32_t i = 0; i < kFccFields; ++i) EXPECT_EQ(FccColumns()[i].field, kCases[i].field);
}

TEST(FccColumns, ShowTimesInTheZone) {
  const struct {
    const char* stop;
    ShownZone zone;
    const char* shown;
  } kCases[] = {{"2400", {true, 7200}, "24:00"},   {"2400", {false, 0}, "24:00"},  {"2400", {false, 7200}, "02:00"},
                {"0030", {false, -3600}, "23:30"}, {"9999", {false, 60}, "04:40"}, {nullptr, {false, 7200}, ""}};
  for (const auto& each : kCases) {
    const FccItem item = ItemOf(each.stop, each.stop);
    EXPECT_EQ(Cell(HfccDatabase(), item, 1, each.zone), each.shown);
    EXPECT_EQ(Cell(HfccDatabase(), item, 2, each.zone), each.shown);
  }
}

// What is greater in a column must be what its texts say, in each zone.
TEST(FccColumns, OrderByWhatIsShown) {
  HfccDatabase database;
  ASSERT_EQ(database.LoadHfcc(SeasonArchive().c_str()), HfccLoad::kRead);
  constexpr uint32_t kSamples = 40;
  ASSERT_GE(database.Items().Count(), kSamples);
  const uint32_t step = database.Items().Count() / kSamples;
  for (const FccColumn& column : FccColumns()) {
    const uint32_t field = column.field;
    const bool isNumeric = field < 3 || field == 5 || field == 6 || field == 9 || field == 10;
    for (const ShownZone& zone : {kUtc, ShownZone{false, -19800}}) {
      const FccGreater greater(database, column, zone);
      for (uint32_t i = 0; i < kSamples * kSamples; ++i) {
        const FccItem& left = *database.Items().Get(i / kSamples * step);
        const FccItem& right = *database.Items().Get(i % kSamples * step);
        const std::string a = Cell(database, left, field, zone), b = Cell(database, right, field, zone);
        ASSERT_EQ(greater(left, right), isNumeric ? Key(field, a) > Key(field, b) : a > b) << column.title << a << b;
      }
    }
  }
  FccItem low, high;
  high.frequency = -1;
  EXPECT_TRUE(FccGreater(database, FccColumnOf(0), kUtc)(high, low)) << "unsigned";
}

#include "app/EibiColumns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr ShownZone kUtc;

EibiItem ItemOf(const std::string& khz, const std::string& time, const std::string& days, const std::string& station) {
  const auto padded = [](std::string text, size_t width) {
    text.resize(width, ' ');
    return text;
  };
  EibiItem item;
  EXPECT_TRUE(item.Parse(padded(khz, 14) + padded(time, 10) + padded(days, 6) + "NOR " + padded(station, 25) + "E   " +
                         padded("CEu", 12) + "ka"));
  return item;
}

std::string Cell(const EibiItem& item, EibiColumn column, const ShownZone& zone = kUtc) {
  CellBuffer buffer;
  const std::string_view text = EibiCellText(item, column, zone, buffer);
  EXPECT_EQ(text.data()[text.size()], 0);
  return std::string(text);
}

}  // namespace

TEST(EibiColumns, ShowsTheTextsOfARecord) {
  const EibiItem item = ItemOf("9420.5", "0500-2400", "135", "Radio X");
  const char* const kTexts[kEibiColumns] = {"9420.5", "05:00", "24:00", "Mon, Wed, Fri", "Radio X", "E",
                                            "CEu",    "ka",    "NOR"};
  for (uint32_t column = 0; column < kEibiColumns; ++column) {
    EXPECT_EQ(Cell(item, static_cast<EibiColumn>(column)), kTexts[column]) << column;
  }
}

TEST(EibiColumns, ShowsTimesInTheZone) {
  const struct {
    const char* time;
    ShownZone zone;
    const char* start;
    const char* stop;
  } kCases[] = {
      {"0500-2400", {true, 7200}, "05:00", "24:00"},   {"0500-2400", {false, 0}, "05:00", "24:00"},
      {"0500-2400", {false, 7200}, "07:00", "02:00"},  {"0500-2330", {false, -19800}, "23:30", "18:00"},
      {"0000-2359", {false, 20700}, "05:45", "05:44"}, {"", {false, 7200}, "-", "-"},
  };
  for (const auto& each : kCases) {
    const EibiItem item = ItemOf("6005", each.time, "", "X");
    EXPECT_EQ(Cell(item, EibiColumn::kStart, each.zone), each.start) << each.time;
    EXPECT_EQ(Cell(item, EibiColumn::kStop, each.zone), each.stop) << each.time;
  }
}

// What is greater in a column must be what its texts say, in each zone; frequencies go by their number.
TEST(EibiColumns, OrdersByWhatIsShown) {
  const EibiItem items[] = {
      ItemOf("6005", "0500-0600", "", "Alpha"),
      ItemOf("16.4", "2300-2400", "Tu", "Alph"),
      ItemOf("-5", "", "irr", "alpha"),
      ItemOf("15790", "0000-2400", "135", "A\xE9rea"),
      ItemOf("6005.5", "2200-0100", "SaSu", "Alpha"),
      ItemOf("9420", "0030-0000", "Mo-Fr", "Zeta"),
  };
  for (const ShownZone& zone : {kUtc, ShownZone{false, 0}, ShownZone{false, 7200}, ShownZone{false, -19800}}) {
    for (uint32_t number = 1; number < kEibiColumns; ++number) {
      const auto column = static_cast<EibiColumn>(number);
      for (const EibiItem& left : items) {
        for (const EibiItem& right : items) {
          // std::string compares as unsigned characters
          EXPECT_EQ(EibiGreater(left, right, column, zone), Cell(left, column, zone) > Cell(right, column, zone))
              << number << ' ' << Cell(left, column, zone) << ' ' << Cell(right, column, zone);
        }
      }
    }
  }
  EXPECT_TRUE(EibiGreater(items[3], items[0], EibiColumn::kFrequency, kUtc));  // 15790 > 6005, unlike their texts
  EXPECT_FALSE(EibiGreater(items[1], items[0], EibiColumn::kFrequency, kUtc));
  EXPECT_FALSE(EibiGreater(items[0], items[0], EibiColumn::kFrequency, kUtc));
  EXPECT_TRUE(EibiGreater(items[2], items[3], EibiColumn::kFrequency, kUtc));  // a negative one counts as unsigned
}

TEST(EibiColumns, SortsAListByAColumn) {
  EibiItem items[] = {ItemOf("6005", "2300-2400", "", "B"), ItemOf("500", "0100-0200", "", "C"),
                      ItemOf("9420", "2200-2300", "", "A")};
  TmyList list;
  for (EibiItem& item : items) list.Add(&item);
  const struct {
    EibiColumn column;
    SortDirection direction;
    ShownZone zone;
    std::vector<int> order;
  } kCases[] = {
      {EibiColumn::kFrequency, SortDirection::kAscending, kUtc, {1, 0, 2}},
      {EibiColumn::kFrequency, SortDirection::kDescending, kUtc, {2, 0, 1}},
      {EibiColumn::kStation, SortDirection::kAscending, kUtc, {2, 0, 1}},
      {EibiColumn::kStart, SortDirection::kAscending, kUtc, {1, 2, 0}},
      {EibiColumn::kStart, SortDirection::kAscending, {false, 3600}, {0, 1, 2}},  // 00:00, 02:00, 23:00
  };
  for (const auto& each : kCases) {
    SortEibi(list, each.column, each.direction, each.zone);
    for (uint32_t i = 0; i < 3; ++i) EXPECT_EQ(list.Get(i), &items[each.order[i]]) << i;
  }
}

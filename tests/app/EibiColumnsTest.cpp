#include "app/EibiColumns.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/TmyString.h"

namespace {

constexpr ShownZone kUtc;

EibiItem ItemOf(const std::string& khz, const std::string& time, const std::string& days, const std::string& station) {
  const auto padded = [](std::string text, size_t width) {
    text.resize(width, ' ');
    return text;
  };
  EibiItem item;
  item.Parse(padded(khz, 14) + padded(time, 10) + padded(days, 6) + "NOR " + padded(station, 25) + "E   " +
             padded("CEu", 12) + "ka");
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

// What comes later in a sorted column must be greater by what is shown; frequencies go by their number.
TEST(EibiColumns, SortsByWhatIsShown) {
  EibiItem items[] = {
      ItemOf("6005", "0500-0600", "", "Alpha"),
      ItemOf("-5", "", "irr", "alpha"),
      ItemOf("15790", "0000-2400", "135", "A\xE9rea"),
      ItemOf("6005.5", "2200-0100", "SaSu", "Alph"),
  };
  CopyText(items[0].language, "F");
  CopyText(items[1].target, "Af");
  CopyText(items[2].remarks, "z");
  CopyText(items[3].itu, "D");
  TmyList list;
  for (EibiItem& item : items) list.Add(&item);
  const auto at = [&list](uint32_t row) -> const EibiItem& { return *static_cast<EibiItem*>(list.Get(row)); };
  for (const ShownZone& zone : {kUtc, ShownZone{false, 7200}, ShownZone{false, -19800}}) {
    for (uint32_t number = 1; number < kEibiColumns; ++number) {
      const auto column = static_cast<EibiColumn>(number);
      SortEibi(list, column, SortDirection::kAscending, zone);
      // std::string compares as unsigned characters
      for (uint32_t row = 1; row < 4; ++row) EXPECT_LE(Cell(at(row - 1), column, zone), Cell(at(row), column, zone));
      EXPECT_LT(Cell(at(0), column, zone), Cell(at(3), column, zone)) << "or the order says nothing";
    }
  }
  SortEibi(list, EibiColumn::kFrequency, SortDirection::kDescending, kUtc);
  for (const int row : {1, 2, 3, 0}) {  // the negative one counts as unsigned
    EXPECT_EQ(&at(0), &items[row]);
    list.Delete(0);
  }
}

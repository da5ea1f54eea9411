#include "app/EibiColumns.h"

#include "tests/support/EibiLine.h"
#include "tests/support/Test.h"

namespace {

// Of the columns from the first one to the last.
std::string Cells(const EibiItem& item, const ShownZone& zone, uint32_t first = 0, uint32_t last = kEibiColumns - 1) {
  std::string cells;
  for (uint32_t column = first; column <= last; ++column) {
    CellBuffer buffer;
    const std::string_view text = EibiCellText(item, static_cast<EibiColumn>(column), zone, buffer);
    EXPECT_EQ(text.data()[text.size()], 0);
    cells.append(column == first ? "" : "|").append(text);
  }
  return cells;
}

TEST(EibiColumns, ShowTheTextsOfARecordWithTimesInTheZone) {
  EibiItem item;
  ASSERT_TRUE(item.Parse(EibiLine("9420.5", "0500-2400", "135")));
  EXPECT_EQ(Cells(item, {}), "9420.5|05:00|24:00|Mon, Wed, Fri|Radio Example|E|CEu|ka|D");
  const std::tuple<const char*, ShownZone, const char*> kCases[] = {
      {"0500-2400", {true, 7200}, "05:00|24:00"},   {"0500-2400", {false, 0}, "05:00|24:00"},
      {"0500-2400", {false, 7200}, "07:00|02:00"},  {"0500-2330", {false, -19800}, "23:30|18:00"},
      {"0000-2359", {false, 20700}, "05:45|05:44"}, {"", {false, 7200}, "-|-"}};
  for (const auto& [time, zone, shown] : kCases) {
    ASSERT_TRUE(item.Parse(EibiLine("6005", time)));
    EXPECT_EQ(Cells(item, zone, 1, 2), shown) << time;
  }
}

// What comes later in a sorted column must be greater by what is shown; frequencies go by their number.
TEST(EibiColumns, SortByWhatIsShown) {
  EibiItem items[4];
  ASSERT_TRUE(items[0].Parse(EibiLine("6005", "0500-0600", "", "Alpha", "F")));
  ASSERT_TRUE(items[1].Parse(EibiLine("-5", "", "irr", "alpha")));
  ASSERT_TRUE(items[2].Parse(EibiLine("15790", "0000-2400", "135", "A\xE9rea", "E", "z")));
  ASSERT_TRUE(items[3].Parse(EibiLine("6005.5", "2200-0100", "SaSu", "Alph")));
  strcpy(items[1].target, "Af");
  strcpy(items[3].itu, "C");
  TmyList list;
  for (EibiItem& item : items) list.Add(&item);
  const auto at = [&list](uint32_t row) -> const EibiItem& { return *static_cast<EibiItem*>(list.Get(row)); };
  for (const ShownZone& zone : {ShownZone{}, ShownZone{false, 7200}, ShownZone{false, -19800}}) {
    for (uint32_t column = 1; column < kEibiColumns; ++column) {
      SortEibi(list, static_cast<EibiColumn>(column), SortDirection::kAscending, zone);
      const auto cell = [&](uint32_t row) { return Cells(at(row), zone, column, column); };
      for (uint32_t row = 1; row < 4; ++row) EXPECT_LE(cell(row - 1), cell(row)) << column;  // as unsigned characters
      EXPECT_LT(cell(0), cell(3)) << "or the order says nothing";
    }
  }
  SortEibi(list, EibiColumn::kFrequency, SortDirection::kDescending, {});
  for (uint32_t row = 0; row < 4; ++row) EXPECT_EQ(&at(row), &items[(row + 1) % 4]) << "the negative one is unsigned";
}

}  // namespace

#include "app/EibiColumns.h"

#include "tests/support/EibiLine.h"
#include "tests/support/Test.h"

namespace {

std::string Cell(const EibiItem& item, EibiColumn column, const ShownZone& zone) {
  CellBuffer buffer;
  const std::string_view text = EibiCellText(item, column, zone, buffer);
  EXPECT_EQ(text.data()[text.size()], 0);
  return std::string(text);
}

TEST(EibiColumns, ShowTimesInTheZone) {
  const std::tuple<const char*, ShownZone, const char*, const char*> kCases[] = {
      {"0500-2400", {true, 7200}, "05:00", "24:00"},   {"0500-2400", {false, 0}, "05:00", "24:00"},
      {"0500-2400", {false, 7200}, "07:00", "02:00"},  {"0500-2330", {false, -19800}, "23:30", "18:00"},
      {"0000-2359", {false, 20700}, "05:45", "05:44"}, {"", {false, 7200}, "-", "-"}};
  for (const auto& [time, zone, start, stop] : kCases) {
    EibiItem item;
    ASSERT_TRUE(item.Parse(EibiLine("6005", time)));
    EXPECT_EQ(Cell(item, EibiColumn::kStart, zone), start);
    EXPECT_EQ(Cell(item, EibiColumn::kStop, zone), stop);
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
  for (const ShownZone& zone : {ShownZone{}, ShownZone{false, 7200}, ShownZone{false, -19800}}) {
    for (uint32_t number = 1; number < kEibiColumns; ++number) {
      const auto column = static_cast<EibiColumn>(number);
      SortEibi(list, column, SortDirection::kAscending, zone);
      std::vector<std::string> cells;
      for (uint32_t i = 0; i < 4; ++i) cells.push_back(Cell(*static_cast<EibiItem*>(list.Get(i)), column, zone));
      EXPECT_TRUE(std::ranges::is_sorted(cells)) << number;  // as unsigned characters
      EXPECT_NE(cells[0], cells[3]) << "or the order says nothing";
    }
  }
  SortEibi(list, EibiColumn::kFrequency, SortDirection::kDescending, {});
  for (uint32_t i = 0; i < 4; ++i) EXPECT_EQ(list.Get(i), &items[(i + 1) % 4]) << "the negative one is unsigned";
}

}  // namespace

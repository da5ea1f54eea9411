#include "app/FccColumns.h"

#include "tests/support/SeasonArchive.h"
#include "tests/support/Test.h"

namespace {

FccItem With(const char* start, const char* stop) {
  const char* cells[kHfccColumns] = {"9420", start, stop};
  FccItem item;
  item.SetCells(cells);
  return item;
}

std::string Cell(const HfccDatabase& database, const FccItem& item, uint32_t field, const ShownZone& zone = {}) {
  CellBuffer buffer;
  const std::string_view text = FccCellText(database, item, FccColumnOf(field), zone, buffer);
  EXPECT_EQ(text.data()[text.size()], 0);
  return std::string(text);
}

// What makes texts of numeric columns comparable, made from the text alone.
long Key(uint32_t field, const std::string& text) {
  if (field == 9 || field == 10) return atol((text.substr(6) + text.substr(3, 2) + text.substr(0, 2)).c_str());
  return field == 1 || field == 2 ? atol(text.c_str()) * 60 + atol(text.c_str() + 3) : atol(text.c_str());
}

}  // namespace

TEST(FccColumns, ShowTimesInTheZone) {
  const std::tuple<const char*, ShownZone, const char*> kCases[] = {
      {"2400", {true, 7200}, "24:00"},   {"2400", {false, 0}, "24:00"},  {"2400", {false, 7200}, "02:00"},
      {"0030", {false, -3600}, "23:30"}, {"9999", {false, 60}, "04:40"}, {nullptr, {false, 7200}, ""}};
  for (const auto& [time, zone, shown] : kCases) {
    EXPECT_EQ(Cell(HfccDatabase(), With(time, ""), FccField::kStart, zone), shown);
    EXPECT_EQ(Cell(HfccDatabase(), With("", time), FccField::kStop, zone), shown);
  }
}

// What is greater in a column must be what its texts say, in each zone.
TEST(FccColumns, OrderByWhatIsShown) {
  HfccDatabase database;
  ASSERT_EQ(database.LoadHfcc(SeasonArchive().c_str()), HfccLoad::kRead);
  constexpr uint32_t kSamples = 40;
  const uint32_t step = database.Items().Count() / kSamples;
  ASSERT_GT(step, 0U);
  for (const FccColumn& column : FccColumns()) {
    const uint32_t field = column.field;
    const bool isNumeric = field < 3 || field == 5 || field == 6 || field == 9 || field == 10;
    for (const ShownZone& zone : {ShownZone{}, ShownZone{false, -19800}}) {
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
  EXPECT_TRUE(FccGreater(database, FccColumnOf(0), {})(high, low)) << "unsigned";
}

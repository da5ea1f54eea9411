#include "app/FccColumns.h"

#include "tests/support/SeasonArchive.h"
#include "tests/support/Test.h"

namespace {

// What makes texts of numeric columns comparable, made from the text alone.
long Key(uint32_t field, const std::string& text) {
  if (field == 9 || field == 10) return atol((text.substr(6) + text.substr(3, 2) + text.substr(0, 2)).c_str());
  return field == 1 || field == 2 ? atol(text.c_str()) * 60 + atol(text.c_str() + 3) : atol(text.c_str());
}

}  // namespace

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
      const auto cell = [&](const FccItem& item) {
        CellBuffer buffer;
        return std::string(FccCellText(database, item, column, zone, buffer));
      };
      const FccGreater greater(database, column, zone);
      for (uint32_t i = 0; i < kSamples * kSamples; ++i) {
        const FccItem& left = *database.Items().Get(i / kSamples * step);
        const FccItem& right = *database.Items().Get(i % kSamples * step);
        const std::string a = cell(left), b = cell(right);
        ASSERT_EQ(greater(left, right), isNumeric ? Key(field, a) > Key(field, b) : a > b) << column.title << a << b;
      }
    }
  }
  FccItem low, high;
  high.frequency = -1;
  EXPECT_TRUE(FccGreater(database, FccColumnOf(0), {})(high, low)) << "unsigned";
}

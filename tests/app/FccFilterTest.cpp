#include "app/FccFilter.h"

#include "tests/support/Test.h"

// What is compared how is tested with the other database's pass, codes and zones with the texts that the grid offers.
TEST(FccFilter, ComparesTheRecordsOwnFields) {
  FccItem item;
  item.frequency = 6005000;
  item.start = 36000;
  item.end = 39600;
  constexpr uint32_t kBoth = FilterFlag::kFrequency | FilterFlag::kTime;
  EXPECT_TRUE(PassesFilter(item, {6005000, 6005000, 39600, 40000, kBoth}));
  EXPECT_FALSE(PassesFilter(item, {6005001, 6005001, 39600, 40000, kBoth}));
  EXPECT_FALSE(PassesFilter(item, {6005000, 6005000, 39601, 40000, kBoth}));
}

#include "app/FccFilter.h"

#include <gtest/gtest.h>

// What is compared how is tested with the other database's pass; here is what it is compared with.
TEST(FccFilter, ComparesTheRecordsOwnFields) {
  FccItem item;
  item.frequency = 6005000;
  item.start = 36000;
  item.end = 39600;
  item.administrationCode = "GRC";
  item.siteCode = "MIR";
  item.broadcasterCode = "ERT";
  item.ciraf = ParseCiraf("4,27-29,100");
  const struct {
    size_t index;
    const char* text;
    bool passes;
  } kCases[] = {{0, "GRC", true}, {0, "grc", false}, {0, "", false},  {1, "MIR", true}, {1, "GRC", false},
                {2, "ERT", true}, {2, "MIR", false}, {3, "28", true}, {3, "100", true}, {3, "2", false},
                {3, "0", false},  {3, "-4", false},  {3, "x", false}, {3, "101", false}};
  for (const auto& each : kCases) {
    FilterChoices choices;
    choices.texts[each.index] = each.text;
    EXPECT_EQ(PassesFilter(item, BuildFilterRecord(choices)), each.passes) << each.index << each.text;
  }
  constexpr uint32_t kBoth = FilterFlag::kFrequency | FilterFlag::kTime;
  EXPECT_TRUE(PassesFilter(item, {6005000, 6005000, 39600, 40000, kBoth}));
  EXPECT_FALSE(PassesFilter(item, {6005001, 6005001, 39600, 40000, kBoth}));
  EXPECT_FALSE(PassesFilter(item, {6005000, 6005000, 39601, 40000, kBoth}));
}

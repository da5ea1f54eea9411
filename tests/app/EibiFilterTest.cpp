#include "app/EibiFilter.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/TmyString.h"

namespace {

EibiItem ItemOf(int32_t hertz, int32_t start, int32_t end) {
  EibiItem item;
  item.frequency = hertz;
  item.start = start;
  item.end = end;
  CopyText(item.station, "Radio A");
  CopyText(item.language, "E");
  CopyText(item.target, "CEu");
  CopyText(item.itu, "D");
  return item;
}

FilterRecord TimeFilter(uint32_t from, uint32_t to, uint32_t more = 0) {
  FilterRecord record;
  record.flags = FilterFlag::kTime | more;
  record.from = from;
  record.to = to;
  return record;
}

}  // namespace

TEST(EibiFilter, ComparesTimesInclusively) {
  constexpr int32_t kHour = 3600;
  const FilterRecord range = TimeFilter(10 * kHour, 12 * kHour);
  const FilterRecord instant = TimeFilter(10 * kHour, 10 * kHour);
  const FilterRecord reversed = TimeFilter(22 * kHour, 2 * kHour);
  const FilterRecord wrapped = TimeFilter(22 * kHour, 2 * kHour, FilterFlag::kTimeWraps);
  const struct {
    int32_t start, end;
    bool range, instant, reversed, wrapped;
  } kCases[] = {
      {10 * kHour, 12 * kHour, true, true, false, false},
      {9 * kHour, 10 * kHour, true, true, false, false},
      {12 * kHour, 13 * kHour, true, false, false, false},
      {9 * kHour, 10 * kHour - 60, false, false, false, false},
      {12 * kHour + 60, 13 * kHour, false, false, false, false},
      {0, 24 * kHour, true, true, true, true},
      {-1, -1, false, false, false, false},  // no time
      {22 * kHour, kHour, false, false, false,
       false},  // over midnight: neither half sees it, its end lies before its start
      {21 * kHour, 22 * kHour, false, false, false, true},
      {23 * kHour, 24 * kHour, false, false, false, true},
      {0, kHour, false, false, false, true},
      {2 * kHour, 3 * kHour, false, false, false, true},
      {2 * kHour + 60, 3 * kHour, false, false, false, false},
      {3 * kHour, 22 * kHour - 60, true, true, false, false},
  };
  for (const auto& each : kCases) {
    const EibiItem item = ItemOf(6005000, each.start, each.end);
    EXPECT_EQ(PassesFilter(item, range), each.range) << each.start << '-' << each.end;
    EXPECT_EQ(PassesFilter(item, instant), each.instant) << each.start << '-' << each.end;
    EXPECT_EQ(PassesFilter(item, reversed), each.reversed) << each.start << '-' << each.end;
    EXPECT_EQ(PassesFilter(item, wrapped), each.wrapped) << each.start << '-' << each.end;
  }
}

TEST(EibiFilter, ComparesFrequenciesInclusively) {
  FilterRecord record;
  record.flags = FilterFlag::kFrequency;
  record.lowest = 5995000;
  record.highest = 6005000;
  for (const int32_t hertz : {5995000, 6000000, 6005000}) EXPECT_TRUE(PassesFilter(ItemOf(hertz, 0, 0), record));
  for (const int32_t hertz : {5994999, 6005001, -6000000}) EXPECT_FALSE(PassesFilter(ItemOf(hertz, 0, 0), record));
  record.lowest = 7000000;
  EXPECT_FALSE(PassesFilter(ItemOf(6500000, 0, 0), record));
}

TEST(EibiFilter, ComparesWholeTexts) {
  const EibiItem item = ItemOf(6005000, 0, 0);
  const struct {
    size_t index;
    const char* text;
    bool passes;
  } kCases[] = {
      {0, "Radio A", true}, {0, "radio A", false}, {0, "Radio", false}, {0, "Radio AB", false},
      {0, "", false},       {1, "E", true},        {1, "EN", false},    {2, "CEu", true},
      {2, "CEU", false},    {3, "D", true},        {3, "DNK", false},
  };
  for (const auto& each : kCases) {
    FilterChoices choices;
    choices.texts[each.index] = each.text;
    EXPECT_EQ(PassesFilter(item, BuildFilterRecord(choices)), each.passes) << each.index << each.text;
  }
  // Texts that fill their fields to the last byte.
  EibiItem full = item;
  CopyText(full.station, std::string(60, 's'));
  FilterChoices choices;
  choices.texts[0] = full.station;
  EXPECT_TRUE(PassesFilter(full, BuildFilterRecord(choices)));
}

TEST(EibiFilter, ListsWhatPassesInOrderAndMarksItShown) {
  TmyTypeList<EibiItem> items;
  for (const int32_t khz : {7, 5, 9, 6, 8}) items.Add(std::make_unique<EibiItem>(ItemOf(khz * 1000, 0, 3600)));
  FilterChoices choices;
  choices.frequencyOn = true;
  choices.frequencies = {6000, 8000};
  TmyList passing;
  passing.Add(&passing);  // what it held before goes
  FilterEibi(items, BuildFilterRecord(choices), passing);
  ASSERT_EQ(passing.Count(), 3U);
  EXPECT_EQ(passing.Get(0), items.Get(0));
  EXPECT_EQ(passing.Get(1), items.Get(3));
  EXPECT_EQ(passing.Get(2), items.Get(4));
  for (uint32_t i = 0; i < 5; ++i) EXPECT_EQ(items.Get(i)->shown, i == 1 || i == 2 ? 0U : 1U) << i;

  choices.texts[0] = "nobody";
  FilterEibi(items, BuildFilterRecord(choices), passing);
  EXPECT_EQ(passing.Count(), 0U);
  for (uint32_t i = 0; i < 5; ++i) EXPECT_EQ(items.Get(i)->shown, 0U) << i;

  TmyList two(1, 2);  // no room for all five
  FilterEibi(items, FilterRecord{}, two);
  ASSERT_EQ(two.Count(), 2U);
  EXPECT_EQ(items.Get(1)->shown, 1U);
  EXPECT_EQ(items.Get(2)->shown, 0U);

  FilterEibi(TmyTypeList<EibiItem>(), FilterRecord{}, two);
  EXPECT_EQ(two.Count(), 0U);
}

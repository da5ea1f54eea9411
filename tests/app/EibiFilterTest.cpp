#include "app/EibiFilter.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/TmyString.h"

namespace {

EibiItem ItemOf(int32_t hertz, int32_t start = 0, int32_t end = 3600) {
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

}  // namespace

TEST(EibiFilter, ComparesTimesInclusively) {
  constexpr uint32_t kWraps = FilterFlag::kTime | FilterFlag::kTimeWraps;
  constexpr uint32_t kPlain = FilterFlag::kTime;
  const uint32_t kFilters[][3] = {{kPlain, 600, 720}, {kPlain, 600, 600}, {kPlain, 1320, 120}, {kWraps, 1320, 120}};
  // In minutes; the last one lies over midnight: no half sees it. Then who passes: a range, an instant, a range the
  // wrong way round, one over midnight.
  const struct {
    int32_t start, end;
    const char* passes;
  } kCases[] = {{600, 720, "yy--"}, {540, 600, "yy--"},   {720, 780, "y---"},   {540, 599, "----"}, {721, 780, "----"},
                {0, 1440, "yyyy"},  {1260, 1320, "---y"}, {1380, 1440, "---y"}, {0, 60, "---y"},    {120, 180, "---y"},
                {121, 180, "----"}, {180, 1319, "yy--"},  {1320, 60, "----"}};
  for (const auto& each : kCases) {
    std::string passes;
    for (const auto& [flags, from, to] : kFilters) {
      FilterRecord record;
      record.flags = flags;
      record.from = from * 60;
      record.to = to * 60;
      passes += PassesFilter(ItemOf(6005000, each.start * 60, each.end * 60), record) ? 'y' : '-';
      EXPECT_FALSE(PassesFilter(ItemOf(6005000, -1, -1), record)) << "it has no time";
    }
    EXPECT_EQ(passes, each.passes) << each.start << '-' << each.end;
  }
}

TEST(EibiFilter, ComparesWholeTexts) {
  EibiItem item = ItemOf(6005000);
  CopyText(item.target, std::string(60, 't'));  // fills its field to the last byte
  const struct {
    size_t index;
    const char* text;
    bool passes;
  } kCases[] = {{0, "Radio A", true}, {0, "radio A", false}, {0, "Radio", false}, {0, "Radio AB", false},
                {0, "", false},       {1, "E", true},        {1, "EN", false},    {2, item.target, true},
                {2, "t", false},      {3, "D", true},        {3, "DNK", false}};
  for (const auto& each : kCases) {
    FilterChoices choices;
    choices.texts[each.index] = each.text;
    EXPECT_EQ(PassesFilter(item, BuildFilterRecord(choices)), each.passes) << each.index << each.text;
  }
}

TEST(EibiFilter, ListsWhatPassesInOrderAndMarksItShown) {
  TmyTypeList<EibiItem> items;
  for (const int32_t hertz : {7000, 5999, 8001, 6000, 8000, -7000}) {
    items.Add(std::make_unique<EibiItem>(ItemOf(hertz)));
  }
  const auto shown = [&items] {
    std::string text;
    for (uint32_t i = 0; i < items.Count(); ++i) text += items.Get(i)->shown ? 'y' : '-';
    return text;
  };
  FilterRecord record;
  record.flags = FilterFlag::kFrequency;
  record.lowest = 6000;
  record.highest = 8000;
  TmyList passing;
  passing.Add(&passing);  // what it held before goes
  FilterEibi(items, record, passing);
  ASSERT_EQ(passing.Count(), 3U);
  EXPECT_EQ(passing.Get(1), items.Get(3));
  EXPECT_EQ(shown(), "y--yy-");
  record.lowest = 9000;  // the bounds the wrong way round
  FilterEibi(items, record, passing);
  EXPECT_EQ(passing.Count(), 0U);
  EXPECT_EQ(shown(), "------");
  TmyList two(1, 2);  // no room for all
  FilterEibi(items, FilterRecord{}, two);
  EXPECT_EQ(two.Count(), 2U);
  EXPECT_EQ(shown(), "yy----");
}

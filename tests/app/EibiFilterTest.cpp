#include "app/EibiFilter.h"

#include "app/FccFilter.h"
#include "foundation/TmyString.h"
#include "tests/support/Test.h"

TEST(EibiFilter, ComparesTimesInclusivelyAsTheOtherDatabaseDoes) {
  constexpr uint32_t kPlain = FilterFlag::kTime | FilterFlag::kFrequency;
  // A range, an instant, a range the wrong way round, one over midnight; in minutes.
  const uint32_t kFilters[][3] = {
      {kPlain, 600, 720}, {kPlain, 600, 600}, {kPlain, 1320, 120}, {kPlain | FilterFlag::kTimeWraps, 1320, 120}};
  const std::tuple<int32_t, int32_t, const char*> kCases[] = {
      {600, 720, "yy--"},  {540, 600, "yy--"},   {720, 780, "y---"}, {540, 599, "----"}, {721, 780, "----"},
      {0, 1440, "yyyy"},   {1260, 1320, "---y"}, {0, 60, "---y"},    {120, 180, "---y"}, {121, 180, "----"},
      {180, 1319, "yy--"}, {1320, 60, "----"}};  // the last one lies over midnight: no half sees it
  for (const auto& [start, end, expected] : kCases) {
    std::string passes;
    for (const auto& [flags, from, to] : kFilters) {
      const FilterRecord record = {6000, 6000, from * 60, to * 60, flags};
      EibiItem item;
      FccItem other;
      item.start = item.end = -1;
      item.frequency = other.frequency = 6000;
      EXPECT_FALSE(PassesFilter(item, record)) << "it has no time";
      item.start = other.start = start * 60;
      item.end = other.end = end * 60;
      passes += PassesFilter(item, record) ? 'y' : '-';
      EXPECT_EQ(PassesFilter(other, record), PassesFilter(item, record)) << start << '-' << end;
      other.frequency = 6001;
      EXPECT_FALSE(PassesFilter(other, record));
    }
    EXPECT_EQ(passes, expected) << start << '-' << end;
  }
}

TEST(EibiFilter, ComparesWholeTexts) {
  EibiItem item;
  CopyText(item.station, "Radio A");
  CopyText(item.language, "E");
  CopyText(item.target, std::string(60, 't'));  // fills its field to the last byte
  CopyText(item.itu, "D");
  const std::tuple<size_t, const char*, bool> kCases[] = {
      {0, "Radio A", true}, {0, "radio A", false}, {0, "Radio", false}, {0, "Radio AB", false}, {0, "", false},
      {1, "E", true},       {1, "D", false},       {2, "t", false},     {2, item.target, true}, {3, "D", true}};
  for (const auto& [index, text, passes] : kCases) {
    FilterChoices choices;
    choices.texts[index] = text;
    EXPECT_EQ(PassesFilter(item, BuildFilterRecord(choices)), passes) << index << text;
  }
}

TEST(EibiFilter, ListsWhatPassesInOrderAsFarAsThereIsRoom) {
  TmyTypeList<EibiItem> items;
  for (const int32_t hertz : {7000, 5999, 8001, 6000, 8000, -7000}) {
    items.Add(std::make_unique<EibiItem>());
    items.Get(items.Count() - 1)->frequency = hertz;
  }
  TmyList passing, two(1, 2);  // which has no room for all
  FilterEibi(items, {6000, 8000, 0, 0, FilterFlag::kFrequency}, passing);
  ASSERT_EQ(passing.Count(), 3U);
  EXPECT_EQ(passing.Get(1), items.Get(3));
  FilterEibi(items, {}, two);
  EXPECT_EQ(two.Count(), 2U);
  EXPECT_TRUE(items.Get(1)->shown && !items.Get(2)->shown);
}

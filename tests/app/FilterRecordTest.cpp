#include "app/FilterRecord.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

constexpr int32_t At(int32_t hours, int32_t minutes = 0) {
  return (hours * 60 + minutes) * 60;
}

}  // namespace

TEST(FilterRecord, TakesFrequenciesAroundAndBetween) {
  const struct {
    bool around;
    FrequencyEdits edits;
    uint32_t lowest, highest;
  } kCases[] = {
      {true, {6000, 10}, 5995, 6005},
      {true, {6000, 11}, 5995, 6005},
      {true, {3, 10}, 0, 8},
      {true, {9420000, 0}, 9420000, 9420000},
      {false, {6000, 7000}, 6000, 7000},
      {false, {7000, 6000}, 7000, 6000},  // passes nothing: never swapped
  };
  for (const auto& each : kCases) {
    FilterChoices choices;
    choices.around = each.around;
    choices.frequencies = each.edits;
    EXPECT_EQ(BuildFilterRecord(choices), FilterRecord{}) << "the check box is off";
    choices.frequencyOn = true;
    const FilterRecord record = BuildFilterRecord(choices);
    EXPECT_EQ(record.flags, FilterFlag::kFrequency);
    EXPECT_EQ(record.lowest, each.lowest);
    EXPECT_EQ(record.highest, each.highest);
  }
}

TEST(FilterRecord, ConvertsTheTimesShown) {
  constexpr uint32_t kPlain = FilterFlag::kTime;
  constexpr uint32_t kWraps = FilterFlag::kTime | FilterFlag::kTimeWraps;
  const struct {
    bool utc;
    int32_t offset, from, to;
    uint32_t utcFrom, utcTo, flags;
  } kCases[] = {
      {true, At(2), At(10), At(12), At(10), At(12), kPlain},
      {true, At(2), At(0), At(24), At(0), At(24), kPlain},
      {true, At(2), At(23), At(1), At(23), At(1), kPlain},  // the wrong way round, as entered
      {false, 0, At(1), At(24), At(1), At(24), kPlain},
      {false, At(2), At(10), At(12), At(8), At(10), kPlain},
      {false, -At(5), At(10), At(12), At(15), At(17), kPlain},
      {false, At(2), At(1), At(3), At(23), At(1), kWraps},
      {false, -At(5, 30), At(18), At(20), At(23, 30), At(1, 30), kWraps},
      {false, -At(12), At(10), At(12), At(22), At(0), kWraps},
      {false, At(2), At(2), At(4), At(0), At(2), kPlain},
      {false, At(2), At(22), At(24), At(20), At(22), kPlain},
      {false, At(2), At(0), At(24), At(0), At(24), kPlain},   // a whole day stays one
      {false, At(3), At(23), At(1), At(20), At(22), kPlain},  // crosses local midnight, not that of UTC
      {false, At(1), At(23), At(0, 30), At(22), At(23, 30), kPlain},
      {false, At(1), At(12), At(11), At(11), At(10), kPlain},  // the wrong way round in both
      {false, At(1), At(5), At(5), At(4), At(4), kPlain},
  };
  for (const auto& each : kCases) {
    FilterChoices choices;
    choices.timeOn = true;
    choices.utcShown = each.utc;
    choices.localOffset = each.offset;
    choices.from = each.from;
    choices.to = each.to;
    const FilterRecord record = BuildFilterRecord(choices);
    EXPECT_EQ(record.from, each.utcFrom) << each.from << ' ' << each.offset;
    EXPECT_EQ(record.to, each.utcTo) << each.to << ' ' << each.offset;
    EXPECT_EQ(record.flags, each.flags) << each.from << ' ' << each.offset;
  }
}

TEST(FilterRecord, TakesTheCurrentTimeInWholeMinutes) {
  FilterChoices choices;
  choices.timeOn = choices.useCurrentTime = true;
  choices.utcShown = false;  // the clock is UTC whatever is shown
  choices.localOffset = 7200;
  choices.utcNow = At(14, 30) + 59;
  const FilterRecord record = BuildFilterRecord(choices);
  EXPECT_EQ(record.from, 52200U);
  EXPECT_EQ(record.to, 52200U);
  EXPECT_EQ(record.flags, FilterFlag::kTime);
}

TEST(FilterRecord, HoldsTextsWithDefinedPadding) {
  FilterChoices choices;
  choices.texts = {std::string_view("a station"), std::nullopt, "", std::string_view("longer than ten")};
  const FilterRecord record = BuildFilterRecord(choices);
  EXPECT_EQ(record.flags, FilterFlag::kText1 | FilterFlag::kText3 | FilterFlag::kText4);
  EXPECT_STREQ(record.text1, "a station");
  EXPECT_STREQ(record.text4, "longer th");

  // Two records made in unlike memory are the same bytes.
  alignas(FilterRecord) char storage[sizeof(FilterRecord)];
  memset(storage, 0xCC, sizeof storage);
  const auto* again = new (storage) FilterRecord(BuildFilterRecord(choices));
  EXPECT_EQ(memcmp(again, &record, sizeof record), 0);
  choices.texts[3] = "longer tha";  // the same once cut
  EXPECT_EQ(BuildFilterRecord(choices), record);
  choices.texts[0] = "a statioN";
  EXPECT_FALSE(BuildFilterRecord(choices) == record);
}

TEST(FilterRecord, SwitchesTheFrequencyEdits) {
  const struct {
    FrequencyEdits between, around;
  } kToAround[] = {
      {{6000, 7000}, {6500, 1000}},
      {{6000, 6001}, {6000, 1}},
      {{7000, 6000}, {6500, 0}},       // no negative span
      {{1000, 9000}, {5000, 1000}},    // the span is limited by the lower bound
      {{0, 30000000}, {15000000, 0}},  // so that "from 0" loses its span
      {{3000000000, 5000000000}, {4000000000, 2000000000}},
  };
  for (const auto& each : kToAround) {
    const FrequencyEdits result = SwitchToAround(each.between);
    EXPECT_EQ(result.first, each.around.first) << each.between.first;
    EXPECT_EQ(result.second, each.around.second) << each.between.first;
  }
  const struct {
    FrequencyEdits around, between;
  } kToBetween[] = {
      {{6500, 1000}, {6000, 7000}}, {{6500, 1001}, {6000, 7001}}, {{3, 10}, {0, 10}},
      {{6000, 0}, {6000, 6000}},    {{6000, -10}, {6005, 6005}},  {{4000000000, 2000000000}, {3000000000, 5000000000}},
  };
  for (const auto& each : kToBetween) {
    const FrequencyEdits result = SwitchToBetween(each.around);
    EXPECT_EQ(result.first, each.between.first) << each.around.first;
    EXPECT_EQ(result.second, each.between.second) << each.around.first;
  }
}

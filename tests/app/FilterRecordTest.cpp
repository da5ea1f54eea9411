#include "app/FilterRecord.h"

#include "tests/support/Test.h"

constexpr int32_t At(int32_t hours) {
  return hours * 3600;
}

TEST(FilterRecord, TakesFrequenciesAroundAndBetween) {
  FilterChoices choices;
  choices.frequencyOn = true;
  choices.frequencies = {7000, 6000};
  EXPECT_EQ(BuildFilterRecord(choices), (FilterRecord{7000, 6000, 0, 0, FilterFlag::kFrequency})) << "never swapped";
  choices.around = true;
  choices.frequencies = {3, 11};
  EXPECT_EQ(BuildFilterRecord(choices), (FilterRecord{0, 8, 0, 0, FilterFlag::kFrequency}));
}

// Ranges the wrong way round stay so. A whole day stays one. Only who crosses midnight UTC wraps, not who crosses the
// local one.
TEST(FilterRecord, ConvertsTheTimesShown) {
  constexpr uint32_t kPlain = FilterFlag::kTime;
  constexpr uint32_t kWraps = FilterFlag::kTime | FilterFlag::kTimeWraps;
  const std::tuple<bool, int32_t, int32_t, int32_t, uint32_t, uint32_t, uint32_t> kCases[] = {
      {true, At(2), At(23), At(1), At(23), At(1), kPlain},     {false, 0, At(1), At(24), At(1), At(24), kPlain},
      {false, -At(5), At(10), At(12), At(15), At(17), kPlain}, {false, At(2), At(1), At(3), At(23), At(1), kWraps},
      {false, -At(12), At(10), At(12), At(22), At(0), kWraps}, {false, At(2), At(2), At(4), At(0), At(2), kPlain},
      {false, At(2), At(0), At(24), At(0), At(24), kPlain},    {false, At(3), At(23), At(1), At(20), At(22), kPlain},
      {false, At(1), At(12), At(11), At(11), At(10), kPlain},  {false, At(2), 0, At(24) - 1, At(0), At(24), kPlain}};
  for (const auto& [utc, offset, from, to, utcFrom, utcTo, flags] : kCases) {
    FilterChoices choices;
    choices.timeOn = true;
    choices.from = from;
    choices.to = to;
    choices.utcShown = utc;
    choices.localOffset = offset;
    EXPECT_EQ(BuildFilterRecord(choices), (FilterRecord{0, 0, utcFrom, utcTo, flags})) << from << ' ' << offset;
    choices.useCurrentTime = true;  // in whole minutes of UTC, whatever is shown
    choices.utcNow = 52259;
    EXPECT_EQ(BuildFilterRecord(choices), (FilterRecord{0, 0, 52200, 52200, kPlain}));
  }
}

TEST(FilterRecord, SwitchesTheFrequencyEdits) {
  using Edits = FrequencyEdits;
  const std::tuple<Edits (*)(Edits), Edits, Edits> kCases[] = {
      {SwitchToAround, {3000000000, 5000000000}, {4000000000, 2000000000}},
      {SwitchToAround, {7000, 6000}, {6500, 0}},     // no negative span
      {SwitchToAround, {1000, 9000}, {5000, 1000}},  // the span is limited by the lower bound
      {SwitchToBetween, {6500, 1001}, {6000, 7001}},
      {SwitchToBetween, {3, 10}, {0, 10}},
      {SwitchToBetween, {6000, -10}, {6005, 6005}}};
  for (const auto& [change, before, after] : kCases) {
    const Edits changed = change(before);
    EXPECT_EQ(std::pair(changed.first, changed.second), std::pair(after.first, after.second)) << before.first;
  }
}

#include "app/FilterRecord.h"

#include <algorithm>
#include <cstring>

#include "foundation/Clock.h"
#include "foundation/TmyString.h"

namespace {

void SetFrequencies(FilterRecord& record, const FilterChoices& choices) noexcept {
  if (!choices.frequencyOn) return;
  const auto [first, second] = choices.frequencies;
  const int64_t half = second / 2;
  record.flags |= FilterFlag::kFrequency;
  record.lowest = static_cast<uint32_t>(choices.around ? std::max<int64_t>(first - half, 0) : first);
  record.highest = static_cast<uint32_t>(choices.around ? first + half : second);
}

// A range that is in order where it was entered may wrap in UTC. One that was entered the wrong way round is taken as
// it comes.
void SetLocalRange(FilterRecord& record, const FilterChoices& choices) noexcept {
  // The whole day, up to the last second that can be entered, is the whole day everywhere.
  if (choices.to - choices.from >= kSecondsPerDay - 1) {
    record.to = kSecondsPerDay;
    return;
  }
  record.from = static_cast<uint32_t>(ShiftTimeOfDay(choices.from, -choices.localOffset));
  record.to = static_cast<uint32_t>(ShiftTimeOfDay(choices.to, -choices.localOffset));
  if (choices.from <= choices.to && record.from > record.to) record.flags |= FilterFlag::kTimeWraps;
}

void SetTimes(FilterRecord& record, const FilterChoices& choices) noexcept {
  if (!choices.timeOn) return;
  record.flags |= FilterFlag::kTime;
  if (choices.useCurrentTime) {
    record.from = record.to = static_cast<uint32_t>(choices.utcNow / 60 * 60);
  } else if (choices.utcShown || choices.localOffset == 0) {  // no shift: 24:00 stays 24:00
    record.from = static_cast<uint32_t>(choices.from);
    record.to = static_cast<uint32_t>(choices.to);
  } else {
    SetLocalRange(record, choices);
  }
}

template <size_t kSize>
void SetText(FilterRecord& record, char (&field)[kSize], uint32_t flag, const std::optional<std::string_view>& text) {
  if (!text) return;
  record.flags |= flag;
  CopyText(field, *text);
}

}  // namespace

bool operator==(const FilterRecord& left, const FilterRecord& right) noexcept {
  return memcmp(&left, &right, sizeof left) == 0;
}

FrequencyEdits SwitchToAround(FrequencyEdits edits) noexcept {
  const int64_t span = std::min(std::max<int64_t>(edits.second - edits.first, 0), edits.first);
  return {(edits.first + edits.second) / 2, span};
}

FrequencyEdits SwitchToBetween(FrequencyEdits edits) noexcept {
  const int64_t low = std::max<int64_t>(edits.first - edits.second / 2, 0);
  return {low, std::max(low + edits.second, low)};
}

FilterRecord BuildFilterRecord(const FilterChoices& choices) noexcept {
  FilterRecord record;
  SetFrequencies(record, choices);
  SetTimes(record, choices);
  SetText(record, record.text1, FilterFlag::kText1, choices.texts[0]);
  SetText(record, record.text2, FilterFlag::kText2, choices.texts[1]);
  SetText(record, record.text3, FilterFlag::kText3, choices.texts[2]);
  SetText(record, record.text4, FilterFlag::kText4, choices.texts[3]);
  return record;
}

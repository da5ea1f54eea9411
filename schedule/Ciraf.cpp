#include "schedule/Ciraf.h"

#include <algorithm>
#include <optional>

namespace {

constexpr uint32_t kTooHigh = ZoneSet::kHighest + 1;  // stands for every higher number

void AddItem(ZoneSet& zones, std::optional<uint32_t> rangeStart, uint32_t number) noexcept {
  for (uint32_t zone = rangeStart.value_or(number); zone <= number && zone < kTooHigh; ++zone) zones.Add(zone);
}

}  // namespace

ZoneSet ParseCiraf(std::string_view text) noexcept {
  ZoneSet zones;
  std::optional<uint32_t> rangeStart;
  uint32_t number = 0;
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      number = std::min(number * 10 + static_cast<uint32_t>(c - '0'), kTooHigh);
    } else if (c == '-') {
      rangeStart = number;
      number = 0;
    } else if (c == ',') {
      AddItem(zones, rangeStart, number);
      rangeStart.reset();
      number = 0;
    }
  }
  AddItem(zones, rangeStart, number);  // of a number that is missing nothing comes: there is no zone 0
  return zones;
}

// Marlux 3. The greater-than tests of the EiBi columns as types, so that a sort is compiled for each of them.
#pragma once

#include "app/EibiColumns.h"
#include "foundation/Clock.h"

namespace EibiTests {

inline constexpr int32_t kNoTime = -1;

struct FrequencyGreater {
  bool operator()(const EibiItem& left, const EibiItem& right) const noexcept {
    return static_cast<uint32_t>(left.frequency) > static_cast<uint32_t>(right.frequency);
  }
};

// Inline and byte by byte: most texts differ early, and a call into the runtime costs more than the comparison.
template <auto kField>
struct TextGreater {
  bool operator()(const EibiItem& left, const EibiItem& right) const noexcept {
    const char* a = left.*kField;
    const char* b = right.*kField;
    while (*a == *b && *a != 0) ++a, ++b;
    return static_cast<uint8_t>(*a) > static_cast<uint8_t>(*b);
  }
};

inline bool KeepsUtc(const ShownZone& zone) noexcept {
  return zone.utc || zone.localOffset == 0;
}

// Local minutes of the day; -1 without a time. They order as their texts do: "-" comes before every digit.
inline int32_t LocalMinutes(int32_t seconds, int32_t offset) noexcept {
  return seconds == kNoTime ? kNoTime : ShiftTimeOfDay(seconds, offset) / 60;
}

template <auto kSeconds>
struct LocalTimeGreater {
  int32_t offset;

  bool operator()(const EibiItem& left, const EibiItem& right) const noexcept {
    return LocalMinutes(left.*kSeconds, offset) > LocalMinutes(right.*kSeconds, offset);
  }
};

}  // namespace EibiTests

// Calls `use` with the test of a column: one place decides which test that is, for single tests and for sorts.
template <class Use>
auto WithEibiTest(EibiColumn column, const ShownZone& zone, Use use) {
  switch (column) {
    case EibiColumn::kStart:
      if (EibiTests::KeepsUtc(zone)) return use(EibiTests::TextGreater<&EibiItem::startText>{});
      return use(EibiTests::LocalTimeGreater<&EibiItem::start>{zone.localOffset});
    case EibiColumn::kStop:
      if (EibiTests::KeepsUtc(zone)) return use(EibiTests::TextGreater<&EibiItem::endText>{});
      return use(EibiTests::LocalTimeGreater<&EibiItem::end>{zone.localOffset});
    case EibiColumn::kDays:
      return use(EibiTests::TextGreater<&EibiItem::daysText>{});
    case EibiColumn::kStation:
      return use(EibiTests::TextGreater<&EibiItem::station>{});
    case EibiColumn::kLanguage:
      return use(EibiTests::TextGreater<&EibiItem::language>{});
    case EibiColumn::kTarget:
      return use(EibiTests::TextGreater<&EibiItem::target>{});
    case EibiColumn::kRemarks:
      return use(EibiTests::TextGreater<&EibiItem::remarks>{});
    case EibiColumn::kItu:
      return use(EibiTests::TextGreater<&EibiItem::itu>{});
    case EibiColumn::kFrequency:
      break;
  }
  return use(EibiTests::FrequencyGreater{});
}

// Marlux 3. The greater-than tests of the EiBi columns as types, so that a sort is compiled for each of them.
#pragma once

#include "app/EibiColumns.h"

namespace EibiTests {

inline constexpr int32_t kNoTime = -1;

struct FrequencyGreater {
  bool operator()(const EibiItem& left, const EibiItem& right) const noexcept {
    return static_cast<uint32_t>(left.frequency) > static_cast<uint32_t>(right.frequency);
  }
};

template <auto kField>
struct TextGreater {
  bool operator()(const EibiItem& left, const EibiItem& right) const noexcept {
    return IsTextGreater(left.*kField, right.*kField);
  }
};

// Local minutes of the day; -1 without a time. They order as their texts do: "-" comes before every digit.
inline int32_t LocalMinutes(int32_t seconds, const ShownZone& zone) noexcept {
  return seconds == kNoTime ? kNoTime : zone.LocalMinutes(seconds);
}

template <auto kSeconds>
struct LocalTimeGreater {
  ShownZone zone;

  bool operator()(const EibiItem& left, const EibiItem& right) const noexcept {
    return LocalMinutes(left.*kSeconds, zone) > LocalMinutes(right.*kSeconds, zone);
  }
};

}  // namespace EibiTests

// Calls `use` with the test of a column: one place decides which test that is, for single tests and for sorts.
template <class Use>
auto WithEibiTest(EibiColumn column, const ShownZone& zone, Use use) {
  switch (column) {
    case EibiColumn::kStart:
      if (zone.KeepsUtc()) return use(EibiTests::TextGreater<&EibiItem::startText>{});
      return use(EibiTests::LocalTimeGreater<&EibiItem::start>{zone});
    case EibiColumn::kStop:
      if (zone.KeepsUtc()) return use(EibiTests::TextGreater<&EibiItem::endText>{});
      return use(EibiTests::LocalTimeGreater<&EibiItem::end>{zone});
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

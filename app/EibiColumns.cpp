#include "app/EibiColumns.h"

#include "foundation/Clock.h"

namespace {

constexpr int32_t kNoTime = -1;

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

bool KeepsUtc(const ShownZone& zone) noexcept {
  return zone.utc || zone.localOffset == 0;
}

// Local minutes of the day; -1 without a time. They order as their texts do: "-" comes before every digit.
int32_t LocalMinutes(int32_t seconds, int32_t offset) noexcept {
  return seconds == kNoTime ? kNoTime : ShiftTimeOfDay(seconds, offset) / 60;
}

template <auto kSeconds>
struct LocalTimeGreater {
  int32_t offset;

  bool operator()(const EibiItem& left, const EibiItem& right) const noexcept {
    return LocalMinutes(left.*kSeconds, offset) > LocalMinutes(right.*kSeconds, offset);
  }
};

// Calls `use` with the test of a column: one place decides which test that is, for single tests and for sorts.
template <class Use>
auto WithTest(EibiColumn column, const ShownZone& zone, Use use) {
  switch (column) {
    case EibiColumn::kStart:
      if (KeepsUtc(zone)) return use(TextGreater<&EibiItem::startText>{});
      return use(LocalTimeGreater<&EibiItem::start>{zone.localOffset});
    case EibiColumn::kStop:
      if (KeepsUtc(zone)) return use(TextGreater<&EibiItem::endText>{});
      return use(LocalTimeGreater<&EibiItem::end>{zone.localOffset});
    case EibiColumn::kDays:
      return use(TextGreater<&EibiItem::daysText>{});
    case EibiColumn::kStation:
      return use(TextGreater<&EibiItem::station>{});
    case EibiColumn::kLanguage:
      return use(TextGreater<&EibiItem::language>{});
    case EibiColumn::kTarget:
      return use(TextGreater<&EibiItem::target>{});
    case EibiColumn::kRemarks:
      return use(TextGreater<&EibiItem::remarks>{});
    case EibiColumn::kItu:
      return use(TextGreater<&EibiItem::itu>{});
    case EibiColumn::kFrequency:
      break;
  }
  return use(FrequencyGreater{});
}

std::string_view TimeCell(int32_t seconds, const char* utcText, const ShownZone& zone, CellBuffer& buffer) noexcept {
  const int32_t minutes = LocalMinutes(seconds, zone.localOffset);
  if (KeepsUtc(zone) || minutes == kNoTime) return utcText;
  const auto digit = [](int32_t value) { return static_cast<char>('0' + value % 10); };
  const int32_t hours = minutes / 60;
  const int32_t rest = minutes % 60;
  const char text[] = {digit(hours / 10), digit(hours), ':', digit(rest / 10), digit(rest), 0};
  static_assert(sizeof text <= sizeof buffer);
  std::copy(std::begin(text), std::end(text), buffer);
  return {buffer, sizeof text - 1};
}

}  // namespace

std::string_view EibiCellText(const EibiItem& item, EibiColumn column, const ShownZone& zone,
                              CellBuffer& buffer) noexcept {
  switch (column) {
    case EibiColumn::kFrequency:
      return item.frequencyText;
    case EibiColumn::kStart:
      return TimeCell(item.start, item.startText, zone, buffer);
    case EibiColumn::kStop:
      return TimeCell(item.end, item.endText, zone, buffer);
    case EibiColumn::kDays:
      return item.daysText;
    case EibiColumn::kStation:
      return item.station;
    case EibiColumn::kLanguage:
      return item.language;
    case EibiColumn::kTarget:
      return item.target;
    case EibiColumn::kRemarks:
      return item.remarks;
    case EibiColumn::kItu:
      return item.itu;
  }
  return "";
}

bool EibiGreater(const EibiItem& left, const EibiItem& right, EibiColumn column, const ShownZone& zone) noexcept {
  return WithTest(column, zone, [&](auto test) { return test(left, right); });
}

void SortEibi(TmyList& records, EibiColumn column, SortDirection direction, const ShownZone& zone) {
  WithTest(column, zone, [&](auto test) {
    SortRecords(records.Entries(), records.Count(), direction, [test](const void* left, const void* right) {
      return test(*static_cast<const EibiItem*>(left), *static_cast<const EibiItem*>(right));
    });
  });
}

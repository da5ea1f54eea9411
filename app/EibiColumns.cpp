#include "app/EibiColumns.h"

#include "app/EibiTests.h"

namespace {

using EibiTests::KeepsUtc;
using EibiTests::kNoTime;
using EibiTests::LocalMinutes;

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
  return WithEibiTest(column, zone, [&](auto test) { return test(left, right); });
}

void SortEibi(TmyList& records, EibiColumn column, SortDirection direction, const ShownZone& zone) {
  WithEibiTest(column, zone, [&](auto test) {
    SortRecords(records.Entries(), records.Count(), direction, [test](const void* left, const void* right) {
      return test(*static_cast<const EibiItem*>(left), *static_cast<const EibiItem*>(right));
    });
  });
}

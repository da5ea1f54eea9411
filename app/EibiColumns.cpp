#include "app/EibiColumns.h"

#include "app/EibiTests.h"

namespace {

std::string_view TimeCell(int32_t seconds, const char* utcText, const ShownZone& zone, CellBuffer& buffer) noexcept {
  if (zone.KeepsUtc() || seconds == EibiTests::kNoTime) return utcText;
  return WriteTime(zone.LocalMinutes(seconds), buffer);
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

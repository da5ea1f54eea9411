#include "app/FccColumns.h"

namespace {

template <auto kField>
const char* Text(const HfccDatabase&, const FccItem& item) noexcept {
  return item.*kField;
}

template <auto kName>
const char* Name(const HfccDatabase& database, const FccItem& item) noexcept {
  return (database.*kName)(item);
}

template <uint32_t kIndex>
const char* Alternative(const HfccDatabase&, const FccItem& item) noexcept {
  return item.alternatives[kIndex];
}

template <auto kField>
uint32_t Number(const FccItem& item, const ShownZone&) noexcept {
  return static_cast<uint32_t>(item.*kField);
}

// Seconds in UTC, minutes in local time: they are only compared with each other. A blank time comes first either way.
template <auto kSeconds, auto kText>
uint32_t Time(const FccItem& item, const ShownZone& zone) noexcept {
  const bool keeps = zone.KeepsUtc() || (item.*kText)[0] == 0;
  return static_cast<uint32_t>(keeps ? item.*kSeconds : zone.LocalMinutes(item.*kSeconds));
}

constexpr FccColumn kColumns[kFccFields] = {
    {FccField::kFrequency, "Freq", 72, true, Text<&FccItem::frequencyText>, Number<&FccItem::frequency>},
    {FccField::kStart, "Start", 54, true, Text<&FccItem::startText>, Time<&FccItem::start, &FccItem::startText>},
    {FccField::kStop, "Stop", 54, true, Text<&FccItem::endText>, Time<&FccItem::end, &FccItem::endText>},
    {FccField::kCiraf, "CIRAF zones", 150, false, Text<&FccItem::cirafText>, nullptr},
    {FccField::kLocation, "Location", 160, false, Name<&HfccDatabase::LocationName>, nullptr},
    {FccField::kPower, "Power", 64, true, Text<&FccItem::powerText>, Number<&FccItem::power>},
    {FccField::kAzimuth, "Azimuth", 76, true, Text<&FccItem::azimuthText>, Number<&FccItem::azimuth>},
    {FccField::kLatitude, "Latitude", 80, false, Text<&FccItem::latitude>, nullptr},
    {FccField::kDays, "Days", 112, false, Text<&FccItem::daysText>, nullptr},
    {FccField::kFrom, "From", 76, false, Text<&FccItem::startDateText>, Number<&FccItem::startDate>},
    {FccField::kTo, "To", 76, false, Text<&FccItem::endDateText>, Number<&FccItem::endDate>},
    {FccField::kMode, "Mode", 152, false, Text<&FccItem::modulationName>, nullptr},
    {FccField::kLongitude, "Longitude", 88, false, Text<&FccItem::longitude>, nullptr},
    {FccField::kLanguage, "Language", 84, false, Text<&FccItem::language>, nullptr},
    {FccField::kAdministration, "Admin", 140, false, Name<&HfccDatabase::AdministrationName>, nullptr},
    {FccField::kBroadcaster, "Broadcaster", 190, false, Name<&HfccDatabase::BroadcasterName>, nullptr},
    {FccField::kOrganisation, "FMO", 190, false, Name<&HfccDatabase::OrganisationName>, nullptr},
    {FccField::kOld, "Old", 50, false, Text<&FccItem::oldRequest>, nullptr},
    {FccField::kAlternative1, "Alt 1", 60, true, Alternative<0>, nullptr},
    {FccField::kAlternative2, "Alt 2", 60, true, Alternative<1>, nullptr},
    {FccField::kAlternative3, "Alt 3", 60, true, Alternative<2>, nullptr},
    {FccField::kNotes, "Notes", 140, false, Text<&FccItem::notes>, nullptr},
};

std::string_view TimeCell(int32_t seconds, const char* utcText, const ShownZone& zone, CellBuffer& buffer) noexcept {
  if (zone.KeepsUtc() || *utcText == 0) return utcText;
  return WriteTime(zone.LocalMinutes(seconds), buffer);
}

}  // namespace

std::span<const FccColumn, kFccFields> FccColumns() noexcept {
  return kColumns;
}

const FccColumn& FccColumnOf(uint32_t field) noexcept {
  for (const FccColumn& column : kColumns) {
    if (column.field == field) return column;
  }
  return kColumns[0];
}

std::string_view FccCellText(const HfccDatabase& database, const FccItem& item, const FccColumn& column,
                             const ShownZone& zone, CellBuffer& buffer) noexcept {
  if (column.field == FccField::kStart) return TimeCell(item.start, item.startText, zone, buffer);
  if (column.field == FccField::kStop) return TimeCell(item.end, item.endText, zone, buffer);
  return column.text(database, item);
}

bool FccGreater::operator()(const FccItem& left, const FccItem& right) const noexcept {
  if (column_.number) return column_.number(left, zone_) > column_.number(right, zone_);
  return IsTextGreater(column_.text(database_, left), column_.text(database_, right));
}

void SortFcc(TmyList& records, SortDirection direction, const FccGreater& greater) {
  SortRecords(records.Entries(), records.Count(), direction, [&greater](const void* left, const void* right) {
    return greater(*static_cast<const FccItem*>(left), *static_cast<const FccItem*>(right));
  });
}

#include "app/FccDetailDialog.h"

#include <cstdio>

#include "foundation/Clock.h"

namespace {

// A time in the shown zone. An offset of 0 changes nothing, so that 24:00 stays; a blank one stays blank.
std::string TimeText(int32_t seconds, const char* utcText, const ShownZone& zone) {
  if (zone.utc || zone.localOffset == 0 || utcText[0] == 0) return utcText;
  const auto minutes = static_cast<uint32_t>(ShiftTimeOfDay(seconds, zone.localOffset)) / 60 % (24 * 60);
  char text[8];
  std::snprintf(text, sizeof(text), "%02u:%02u", minutes / 60, minutes % 60);
  return text;
}

}  // namespace

FccDetailDialog::FccDetailDialog(TmyComponent& owner, const FccItem& item, const HfccDatabase& database,
                                 const ShownZone& zone)
    : DetailDialog(owner) {
  AddRow("Freq", item.frequencyText);
  AddRange("Date", item.startDateText, item.endDateText);
  AddRow("Days", item.daysText);
  AddRange("Time", TimeText(item.start, item.startText, zone), TimeText(item.end, item.endText, zone));
  AddRow("CIRAFs", item.cirafText);
  AddRow("Location", database.LocationName(item));
  AddRow("Power", item.powerText);
  AddRow("Azimuth", item.azimuthText);
  AddRow("Mode", item.modulationName);
  AddRow("Language", item.language);
  AddRow("Admin", database.AdministrationName(item));
  AddRow("Broadcaster", database.BroadcasterName(item));
  AddRow("FMO", database.OrganisationName(item));
  AddRow("Old", item.oldRequest);
  AddRow("Alt 1", item.alternatives[0]);
  AddRow("Alt 2", item.alternatives[1]);
  AddRow("Alt 3", item.alternatives[2]);
  AddRow("Notes", item.notes);
  RowsAdded(owner);
}

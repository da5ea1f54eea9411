#include "app/FccDetailDialog.h"

#include "app/FccColumns.h"

FccDetailDialog::FccDetailDialog(TmyComponent& owner, const FccItem& item, const HfccDatabase& database,
                                 const ShownZone& zone)
    : DetailDialog(owner) {
  CellBuffer start;
  CellBuffer stop;
  const auto text = [&](FccField field, CellBuffer& buffer) {
    return FccCellText(database, item, FccColumnOf(static_cast<uint32_t>(field)), zone, buffer);
  };
  const auto add = [&](const char* label, FccField field) { AddRow(label, text(field, start)); };
  add("Freq", FccField::kFrequency);
  AddRange("Date", text(FccField::kFrom, start), text(FccField::kTo, stop));
  add("Days", FccField::kDays);
  AddRange("Time", text(FccField::kStart, start), text(FccField::kStop, stop));
  add("CIRAFs", FccField::kCiraf);
  add("Location", FccField::kLocation);
  add("Power", FccField::kPower);
  add("Azimuth", FccField::kAzimuth);
  add("Mode", FccField::kMode);
  add("Language", FccField::kLanguage);
  add("Admin", FccField::kAdministration);
  add("Broadcaster", FccField::kBroadcaster);
  add("FMO", FccField::kOrganisation);
  add("Old", FccField::kOld);
  add("Alt 1", FccField::kAlternative1);
  add("Alt 2", FccField::kAlternative2);
  add("Alt 3", FccField::kAlternative3);
  add("Notes", FccField::kNotes);
  RowsAdded(owner);
}

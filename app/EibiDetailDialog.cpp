#include "app/EibiDetailDialog.h"

EibiDetailDialog::EibiDetailDialog(TmyComponent& owner, const EibiItem& item, const ShownZone& zone)
    : DetailDialog(owner) {
  CellBuffer start;
  CellBuffer stop;
  AddRow("Freq", item.frequencyText);
  AddRow("Days", item.daysText);
  AddRange("Time", EibiCellText(item, EibiColumn::kStart, zone, start),
           EibiCellText(item, EibiColumn::kStop, zone, stop));
  AddRow("Station", item.station);
  AddRow("Language", item.language);
  AddRow("Target", item.target);
  AddRow("Remarks", item.remarks);
  AddRow("ITU country", item.itu);
  RowsAdded(owner);
}

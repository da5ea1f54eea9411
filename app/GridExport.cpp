#include "app/GridExport.h"

#include <commdlg.h>

#include "schedule/CsvExport.h"

TmyString MakeCsvLine(const ScheduleGrid& grid, uint32_t row) {
  TmyStringList cells;
  grid.RowTexts(row, cells);
  return CsvExport::LineOf(cells);
}

DWORD WriteCsv(const ScheduleGrid& grid, const TmyString& path) {
  CsvExport file(path);
  const bool onlyMarked = grid.MarkCount() > 0;
  for (uint32_t row = 0; row <= grid.ShownCount(); ++row) {
    if (row > 0 && onlyMarked && !grid.IsRowMarked(row)) continue;
    TmyStringList cells;
    grid.RowTexts(row, cells);
    file.AddLine(cells);
  }
  return file.Finish();
}

TmyString AskForCsvFile(HWND owner, const TmyString& folder) {
  char file[MAX_PATH] = {};
  CopyText(file, (folder + "\\mx_export.csv").View());
  OPENFILENAMEA dialog = {};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = "CSV files\0*.csv\0";
  dialog.lpstrDefExt = "csv";
  dialog.lpstrFile = file;
  dialog.nMaxFile = sizeof(file);
  dialog.lpstrTitle = "Export to CSV";
  dialog.Flags = OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | OFN_NOREADONLYRETURN;
  return GetSaveFileNameA(&dialog) ? TmyString(file) : TmyString();
}

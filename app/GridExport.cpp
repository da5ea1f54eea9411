#include "app/GridExport.h"

#include <cderr.h>
#include <commdlg.h>

#include "foundation/FloatMode.h"
#include "foundation/LostTexts.h"
#include "schedule/CsvExport.h"

TmyString MakeCsvLine(const ScheduleGrid& grid, uint32_t row) {
  TmyStringList cells;
  grid.RowTexts(row, cells);
  return CsvExport::LineOf(cells);
}

DWORD WriteCsv(const ScheduleGrid& grid, const TmyString& path) {
  const uint32_t lost = LostTexts();
  CsvExport file(path);
  const bool onlyMarked = grid.MarkCount() > 0;
  bool isWhole = true;
  for (uint32_t row = 0; row <= grid.ShownCount(); ++row) {
    if (row > 0 && onlyMarked && !grid.IsRowMarked(row)) continue;
    TmyStringList cells;
    grid.RowTexts(row, cells);
    isWhole = isWhole && cells.Count() == grid.ColumnCount();
    file.AddLine(cells);
  }
  return isWhole && LostTexts() == lost ? file.Finish() : ERROR_NOT_ENOUGH_MEMORY;
}

namespace {
constexpr char kFileName[] = "\\mx_export.csv";
}

TmyString AskForCsvFile(HWND owner, const TmyString& folder) {
  const KeptFloatMode kept;
  char file[MAX_PATH] = {};
  const TmyString proposed = folder + kFileName;
  CopyText(file, proposed.Length() < sizeof(file) ? proposed.View() : std::string_view(kFileName + 1));
  OPENFILENAMEA dialog = {};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = "CSV files\0*.csv\0";
  dialog.lpstrDefExt = "csv";
  dialog.lpstrFile = file;
  dialog.nMaxFile = sizeof(file);
  dialog.lpstrTitle = "Export to CSV";
  dialog.Flags = OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | OFN_NOREADONLYRETURN;
  BOOL chosen = GetSaveFileNameA(&dialog);
  if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
    CopyText(file, kFileName + 1);  // the folder of last time is none any more
    chosen = GetSaveFileNameA(&dialog);
  }
  return chosen ? TmyString(file) : TmyString();
}

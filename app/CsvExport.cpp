#include "app/CsvExport.h"

#include <commdlg.h>

#include <memory>

namespace {

struct HandleCloser {
  void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using FileHandle = std::unique_ptr<void, HandleCloser>;

constexpr uint32_t kChunk = 64 * 1024;  // bytes gathered before a write

// Gathers lines and writes them in large pieces; remembers the first error.
class Writer {
 public:
  explicit Writer(HANDLE file) noexcept : file_(file) {}
  void Add(const TmyString& line) {
    pending_ += line;
    if (pending_.Length() >= kChunk) Flush();
  }
  void Flush() {
    DWORD written = 0;
    if (error_ != ERROR_SUCCESS) return;
    if (!WriteFile(file_, pending_.Chars(), pending_.Length(), &written, nullptr)) {
      error_ = GetLastError();
    } else if (written != pending_.Length()) {
      error_ = ERROR_DISK_FULL;
    }
    pending_ = TmyString::WithRoom(2 * kChunk);
  }
  [[nodiscard]] DWORD Error() const noexcept { return error_; }

 private:
  HANDLE file_;  // the caller's
  TmyString pending_ = TmyString::WithRoom(2 * kChunk);
  DWORD error_ = ERROR_SUCCESS;
};

DWORD WriteRows(const ScheduleGrid& grid, const TmyString& path) {
  const HANDLE opened =
      CreateFileA(path.Chars(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE) return GetLastError();
  const FileHandle file(opened);
  Writer writer(opened);
  const bool onlyMarked = grid.MarkCount() > 0;
  for (uint32_t row = 0; row <= grid.ShownCount(); ++row) {
    if (row == 0 || !onlyMarked || grid.IsRowMarked(row)) writer.Add(MakeCsvLine(grid, row));
  }
  writer.Flush();
  return writer.Error();
}

}  // namespace

TmyString MakeCsvLine(const ScheduleGrid& grid, uint32_t row) {
  TmyStringList cells;
  grid.RowTexts(row, cells);
  return cells.GetCommaText() + "\r\n";
}

DWORD WriteCsv(const ScheduleGrid& grid, const TmyString& path) {
  // Swapping in would ask the folder's rights only.
  const DWORD before = GetFileAttributesA(path.Chars());
  if (before != INVALID_FILE_ATTRIBUTES && (before & FILE_ATTRIBUTE_READONLY) != 0) return ERROR_ACCESS_DENIED;
  const TmyString aside = path + ".part";
  DWORD error = WriteRows(grid, aside);
  if (error == ERROR_SUCCESS && !MoveFileExA(aside.Chars(), path.Chars(), MOVEFILE_REPLACE_EXISTING)) {
    error = GetLastError();
  }
  if (error != ERROR_SUCCESS) DeleteFileA(aside.Chars());
  return error;
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

#include "schedule/CsvExport.h"

#include "foundation/FolderFiles.h"
#include "foundation/HeldFile.h"

namespace {
constexpr uint32_t kChunk = 64 * 1024;  // bytes gathered before a write
}

CsvExport::CsvExport(const TmyString& path) : path_(path) {
  // Swapping in would ask for the folder's rights only.
  const DWORD before = GetFileAttributesA(path_.Chars());
  if (before != INVALID_FILE_ATTRIBUTES && (before & FILE_ATTRIBUTE_READONLY) != 0) {
    error_ = ERROR_ACCESS_DENIED;
  } else {
    Open();
  }
}

CsvExport::~CsvExport() {
  if (!file_) return;
  file_.reset();
  DeleteFileA(aside_);
}

// In the same folder, where the swap is one step, under a name that nobody has.
void CsvExport::Open() {
  const TmyString folder = FolderOf(path_);
  if (folder.IsEmpty()) {
    error_ = ERROR_BAD_PATHNAME;
    return;
  }
  if (!GetTempFileNameA((folder + "\\").Chars(), "csv", 0, aside_)) {
    error_ = GetLastError();
    return;
  }
  file_.reset(
      HandleOrNull(CreateFileA(aside_, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)));
  if (file_) return;
  error_ = GetLastError();
  DeleteFileA(aside_);
}

TmyString CsvExport::LineOf(const TmyStringList& cells) {
  return cells.GetCommaText() + "\r\n";
}

void CsvExport::AddLine(const TmyStringList& cells) {
  if (error_ != ERROR_SUCCESS) return;
  pending_.append(LineOf(cells).View());
  if (pending_.size() >= kChunk) Flush();
}

void CsvExport::Flush() {
  if (error_ != ERROR_SUCCESS) return;
  DWORD written = 0;
  const auto size = static_cast<DWORD>(pending_.size());
  if (!WriteFile(file_.get(), pending_.data(), size, &written, nullptr)) {
    error_ = GetLastError();
  } else if (written != size) {
    error_ = ERROR_DISK_FULL;
  }
  pending_.clear();
}

DWORD CsvExport::Finish() {
  if (!file_) return error_;
  Flush();
  file_.reset();
  const auto exchange = [this] { return MoveFileExA(aside_, path_.Chars(), MOVEFILE_REPLACE_EXISTING) != FALSE; };
  if (error_ == ERROR_SUCCESS && !HeldFile::TryFor(exchange)) error_ = GetLastError();
  if (error_ != ERROR_SUCCESS) DeleteFileA(aside_);
  return error_;
}

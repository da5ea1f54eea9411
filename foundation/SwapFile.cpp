#include "foundation/SwapFile.h"

#include "foundation/Trace.h"

SwapFile::SwapFile(const TmyString& name) : name_(name), aside_(name + kEnding) {
  file_.emplace(aside_, GENERIC_WRITE, CREATE_ALWAYS, 0);  // nobody reads half of it or writes into it
  whole_ = file_->IsOpen();
}

SwapFile::~SwapFile() {
  if (file_) Drop();
}

bool SwapFile::Write(const void* data, uint32_t length) {
  whole_ = whole_ && file_ && file_->Write(data, length);
  return whole_;
}

// The content is flushed before the swap: after a power cut the name must not lead to a file without its bytes.
bool SwapFile::Commit() {
  if (!file_) return false;
  if (!whole_ || !file_->Flush()) {
    Drop();
    return false;
  }
  file_.reset();
  if (MoveFileExA(aside_.Chars(), name_.Chars(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) return true;
  Trace::Line("File not replaced, err=%d", static_cast<int>(GetLastError()));
  DeleteFileA(aside_.Chars());
  return false;
}

void SwapFile::Drop() {
  const bool isOurs = file_->IsOpen();
  file_.reset();
  if (isOurs) DeleteFileA(aside_.Chars());
}

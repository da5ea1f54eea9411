#include "foundation/SwapFile.h"

#include "foundation/HeldFile.h"
#include "foundation/Trace.h"

namespace {

constexpr uint32_t kPiece = 4096;
}  // namespace

// Where the longer name is more than the system takes the ending takes the place of the last characters.
SwapFile::SwapFile(const TmyString& name) : name_(name), aside_(name + kEnding) {
  constexpr uint32_t kLongest = MAX_PATH - 1;
  if (aside_.Length() > kLongest && name_.Length() <= kLongest) {
    aside_ = name_;
    aside_.RemoveRight(sizeof kEnding - 1);
    aside_ += kEnding;
  }
  // A name that memory was short for could be that of the file itself.
  const bool isNamed = !name_.IsEmpty() && aside_.Length() >= name_.Length() && aside_ != name_;
  if (isNamed) file_.emplace(aside_, GENERIC_WRITE, CREATE_ALWAYS, 0);  // nobody reads half of it or writes into it
  whole_ = file_ && file_->IsOpen();
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
  const auto exchange = [this] {
    return MoveFileExA(aside_.Chars(), name_.Chars(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
  };
  if (HeldFile::TryFor(exchange)) return true;
  const DWORD error = GetLastError();
  Trace::Line("File not replaced, err=%d", static_cast<int>(error));
  const Copied copied = HeldFile::IsReason(error) ? CopyOver() : Copied::kNothing;
  if (copied != Copied::kPart) DeleteFileA(aside_.Chars());
  return copied == Copied::kWhole;
}

// There may be no such file yet, when it is the one beside that somebody holds. Then half of it is not left behind.
SwapFile::Copied SwapFile::CopyOver() const {
  TmyFile from(aside_, GENERIC_READ, OPEN_EXISTING);
  if (!from.IsOpen()) return Copied::kNothing;
  const bool isNew =
      GetFileAttributesA(name_.Chars()) == INVALID_FILE_ATTRIBUTES && GetLastError() == ERROR_FILE_NOT_FOUND;
  const Copied copied = CopyInto(from);
  if (isNew && copied != Copied::kWhole) DeleteFileA(name_.Chars());
  return copied;
}

// A holder who lets nobody write makes the opening fail, which leaves the old content. One who has it mapped makes the
// new size fail, and so does a disk without room for a longer one. From then on only the file beside is whole.
SwapFile::Copied SwapFile::CopyInto(TmyFile& from) const {
  FlushedFile to(name_, GENERIC_WRITE, OPEN_ALWAYS);
  const uint64_t former = to.Size();
  if (!to.SetSize(from.Size())) {
    if (to.Size() != former) to.SetSize(former);
    return Copied::kNothing;
  }
  uint8_t piece[kPiece];
  std::optional<uint32_t> got;
  while ((got = from.ReadSome(piece, sizeof piece)).value_or(0) != 0) {
    if (!to.Write(piece, *got)) return Copied::kPart;
  }
  return got && to.Flush() ? Copied::kWhole : Copied::kPart;
}

// Then the position is the beginning.
bool SwapFile::FlushedFile::SetSize(uint64_t bytes) {
  LARGE_INTEGER end = {};
  const LARGE_INTEGER begin = {};
  end.QuadPart = static_cast<LONGLONG>(bytes);
  const bool isSet = IsOpen() && SetFilePointerEx(Handle(), end, nullptr, FILE_BEGIN) && SetEndOfFile(Handle());
  return SetFilePointerEx(Handle(), begin, nullptr, FILE_BEGIN) && isSet;
}

void SwapFile::Drop() {
  const bool isOurs = file_->IsOpen();
  file_.reset();
  if (isOurs) DeleteFileA(aside_.Chars());
}

#include "scheduler/TmyFileDirect.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <utility>

#include "foundation/Clock.h"
#include "foundation/HeldFile.h"
#include "foundation/Trace.h"

namespace {

constexpr DWORD kOpenMs = 10000;
// A sleeping drive needs less to spin up. It is the longest that we wait for a transfer.
constexpr DWORD kTransferMs = 10000;
constexpr uint32_t kRestMs = 60000;
constexpr uint32_t kRenewMs = 2000;
constexpr uint32_t kSlowOpenMs = 1000;  // a name that takes longer to be found missing waits as a drive that hangs
constexpr DWORD kShare = FILE_SHARE_READ;
constexpr DWORD kDirect = FILE_FLAG_NO_BUFFERING | FILE_FLAG_OVERLAPPED;
constexpr uint32_t kUsualSector = 4096;  // a multiple of all usual sizes, for volumes that do not tell theirs
constexpr uint32_t kLargestBuffer = 64U << 20;

static_assert(TmyFileDirect::BlockSizeFor(512) == 512 && TmyFileDirect::BlockSizeFor(520) == 8320);

uint32_t BytesPerSector(const char* path) {
  char root[MAX_PATH + 1] = "";
  DWORD clusterSectors = 0;
  DWORD bytes = 0;
  DWORD freeClusters = 0;
  DWORD clusters = 0;
  const bool told = GetVolumePathNameA(path, root, sizeof root) &&
                    GetDiskFreeSpaceA(root, &clusterSectors, &bytes, &freeClusters, &clusters);
  return told && bytes != 0 ? bytes : kUsualSector;
}

}  // namespace

TmyFileDirect::TmyFileDirect(const TmyString& name, bool readOnly, bool create, uint32_t bufferSize)
    : TmyFile(name, readOnly ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE,
              readOnly ? OPEN_EXISTING : (create ? CREATE_ALWAYS : OPEN_ALWAYS), kShare, kDirect),
      readOnly_(readOnly) {
  const Trace::Scope scope("TmyFileDirect::TmyFileDirect");
  if (IsOpen() && !Prepare(bufferSize)) Close();
}

TmyFileDirect::~TmyFileDirect() {
  const Trace::Scope scope("TmyFileDirect::~TmyFileDirect");
  CloseDirect();
}

TmyFileDirect::Pages TmyFileDirect::MakePages(uint32_t bytes) noexcept {
  return Pages(static_cast<uint8_t*>(VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE)));
}

bool TmyFileDirect::Prepare(uint32_t bufferSize) {
  const uint32_t block = BlockSizeFor(BytesPerSector(Name().Chars()));
  blockSize_ = block;
  stagingCapacity_ = std::max(std::min(bufferSize, kLargestBuffer), 2 * block) + 2 * block;
  memory_ = MakePages(block + stagingCapacity_);
  event_.reset(CreateEventA(nullptr, TRUE, FALSE, nullptr));
  if (!memory_ || !event_) return false;
  if (readOnly_) return true;
  const uint64_t size = TmyFile::Size();
  base_ = size - size % block;
  return ReadTail(static_cast<uint32_t>(size % block));
}

bool TmyFileDirect::ReadTail(uint32_t length) {
  if (length == 0) return true;
  if (!StartRead(base_, Tail(), blockSize_)) return false;
  if (WaitForTransfer(kOpenMs) < static_cast<int32_t>(length)) return false;
  tailUsed_ = length;
  return true;
}

bool TmyFileDirect::IsGivenUp() const noexcept {
  return hangs_ && Clock::Ticks() - hungAt_ < kRestMs;
}

uint64_t TmyFileDirect::Size() const {
  return std::max(TmyFile::Size(), LogicalEnd());
}

uint64_t TmyFileDirect::Position() const {
  return readOnly_ ? readAt_ : LogicalEnd();
}

uint32_t TmyFileDirect::LargestPiece() const noexcept {
  return stagingCapacity_ - 3 * blockSize_;
}

bool TmyFileDirect::Write(const void* data, uint32_t length) {
  const auto* rest = static_cast<const uint8_t*>(data);
  if (!IsOpen() || readOnly_ || IsGivenUp()) return false;
  if (mayBeLost_ && Clock::Ticks() - renewedAt_ >= kRenewMs) RenewHandle();
  while (length != 0) {
    const uint32_t piece = std::min(length, LargestPiece());
    if (!AppendPiece(rest, piece)) return false;
    rest += piece;
    length -= piece;
  }
  return true;
}

bool TmyFileDirect::AppendPiece(const void* data, uint32_t length) {
  const Appended appended = Append(length, data);
  return appended == Appended::kInTail || (appended == Appended::kStarted && WaitForTransfer(kTransferMs) > 0);
}

// The tail keeps its bytes until the write that takes a copy of them has ended well.
TmyFileDirect::Appended TmyFileDirect::Append(uint32_t length, const void* data) {
  if (!IsOpen() || readOnly_ || transferring_) return Appended::kRefused;
  writtenTo_ = true;
  const uint64_t all = uint64_t{tailUsed_} + length;
  if (all < blockSize_) {
    std::memcpy(Tail() + tailUsed_, data, length);
    tailUsed_ += length;
    return Appended::kInTail;
  }
  if (all > stagingCapacity_) return Appended::kRefused;
  std::memcpy(Staging(), Tail(), tailUsed_);
  std::memcpy(Staging() + tailUsed_, data, length);
  stagedTail_ = static_cast<uint32_t>(all % blockSize_);
  staged_ = static_cast<uint32_t>(all) - stagedTail_;
  if (StartWrite(base_, Staging(), staged_)) return Appended::kStarted;
  staged_ = 0;
  return Appended::kRefused;
}

bool TmyFileDirect::StartRead(uint64_t offset, void* buffer, uint32_t length) {
  if (!BeginTransfer(offset, buffer, length)) return false;
  DWORD count = 0;  // older systems want to write it somewhere
  return TransferStarted(ReadFile(Handle(), buffer, length, &count, &overlapped_));
}

bool TmyFileDirect::StartWrite(uint64_t offset, const void* buffer, uint32_t length) {
  if (!BeginTransfer(offset, buffer, length)) return false;
  DWORD count = 0;
  return TransferStarted(WriteFile(Handle(), buffer, length, &count, &overlapped_));
}

// What is not aligned is refused by some devices and taken by others: it must not depend on the device. The system
// clears the event itself when the transfer begins. The lowest bit of its handle says that no completion port is to be
// told, for there is none; asking after one costs as much as the event.
bool TmyFileDirect::BeginTransfer(uint64_t offset, const void* buffer, uint32_t length) {
  const bool aligned = IsAligned(offset, buffer, length);
  if (!aligned) Trace::Line("FileDirect transfer of %u bytes to %llu refused: not aligned", length, offset);
  assert(aligned && !transferring_);
  if (!aligned || transferring_ || IsGivenUp()) return false;
  overlapped_ = {};
  overlapped_.Offset = static_cast<DWORD>(offset);
  overlapped_.OffsetHigh = static_cast<DWORD>(offset >> 32);
  overlapped_.hEvent = reinterpret_cast<HANDLE>(reinterpret_cast<uintptr_t>(event_.get()) | 1);
  begunAt_ = Clock::Ticks();
  return true;
}

bool TmyFileDirect::IsAligned(uint64_t offset, const void* buffer, uint32_t length) const noexcept {
  const uint32_t addressUnit = blockSize_ & (0U - blockSize_);  // the largest power of two in it
  return length != 0 && length % blockSize_ == 0 && offset % blockSize_ == 0 &&
         reinterpret_cast<uintptr_t>(buffer) % addressUnit == 0;
}

bool TmyFileDirect::TransferStarted(BOOL taken) noexcept {
  const DWORD error = taken ? DWORD{ERROR_IO_PENDING} : GetLastError();
  transferring_ = error == ERROR_IO_PENDING;
  if (transferring_) return true;
  Trace::Line("FileDirect transfer not started, err=%d", static_cast<int>(error));
  SetHangs(IsLate());
  SetLost(error);
  return false;
}

// A write that makes the file longer keeps its thread until it has ended or failed, on many systems.
bool TmyFileDirect::IsLate() const noexcept {
  return Clock::Ticks() - begunAt_ >= kTransferMs;
}

void TmyFileDirect::SetHangs(bool hangs) noexcept {
  hangs_ = hangs;
  if (hangs) hungAt_ = Clock::Ticks();
}

void TmyFileDirect::SetLost(DWORD error) noexcept {
  const bool isLost = error != ERROR_SUCCESS && error != ERROR_DISK_FULL && error != ERROR_HANDLE_DISK_FULL;
  if (isLost && !mayBeLost_) renewedAt_ = Clock::Ticks();
  mayBeLost_ = isLost;
}

// Of a file that is not lost there is no second handle to be had.
void TmyFileDirect::RenewHandle() {
  begunAt_ = Clock::Ticks();
  TmyFile again(Name(), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, kShare, kDirect);
  const bool isBack = again.IsOpen() && again.Size() >= base_;
  if (isBack) {
    Trace::Line("FileDirect handle renewed");
    TakeHandle(again);
  }
  renewedAt_ = Clock::Ticks();
  // Held, most likely by our own handle, it is there, and that handle is tried again.
  const bool isMissing = !isBack && again.OpenError() != ERROR_SHARING_VIOLATION;
  SetHangs(isMissing && renewedAt_ - begunAt_ >= kSlowOpenMs);
}

int32_t TmyFileDirect::WaitForTransfer(DWORD timeout) {
  if (!transferring_) return 0;
  // Many transfers have ended when the call that began them returns: to wait for those would only cost time.
  const bool late =
      !HasOverlappedIoCompleted(&overlapped_) && WaitForSingleObject(event_.get(), timeout) != WAIT_OBJECT_0;
  if (late) {
    Trace::Line("FileDirect Wait timeout");
    CancelIo(Handle());
  }
  DWORD count = 0;
  // Waits for the cancellation to arrive, too: until then the system uses the buffer. Who was only just too late to be
  // cancelled has done its work and counts.
  const BOOL done = GetOverlappedResult(Handle(), &overlapped_, &count, TRUE);
  SetLost(done || late ? DWORD{ERROR_SUCCESS} : GetLastError());  // what we cancel is slow, not gone
  transferring_ = false;
  const uint32_t staged = std::exchange(staged_, 0);
  SetHangs(!done && (late || IsLate()));
  if (!done) {
    if (!late) Trace::Line("FileDirect getOverlappedResult failed");
    return late ? -1 : -2;
  }
  return staged == 0 ? static_cast<int32_t>(count) : CountWritten(count, staged);
}

// Of a write that was cut short the whole blocks stay; the tail that it began with is in the first of them.
int32_t TmyFileDirect::CountWritten(uint32_t bytes, uint32_t staged) {
  const uint32_t blocks = bytes - bytes % blockSize_;
  base_ += blocks;
  if (bytes >= staged) {
    std::memcpy(Tail(), Staging() + staged, stagedTail_);
    tailUsed_ = stagedTail_;
    return static_cast<int32_t>(bytes);
  }
  if (blocks != 0) tailUsed_ = 0;
  Trace::Line("FileDirect tmp=%d, AsyncBlockSize=%d, returning 0", static_cast<int>(bytes), static_cast<int>(staged));
  return 0;
}

bool TmyFileDirect::Read(void* data, uint32_t length) {
  if (!IsOpen() || !readOnly_) return false;
  const uint64_t size = TmyFile::Size();
  auto* to = static_cast<uint8_t*>(data);
  auto rest = static_cast<uint32_t>(std::min<uint64_t>(length, size - std::min(size, readAt_)));
  while (rest != 0) {
    const uint32_t got = ReadPiece(to, rest);
    if (got == 0) return false;
    to += got;
    rest -= got;
  }
  return true;
}

uint32_t TmyFileDirect::ReadPiece(uint8_t* data, uint32_t length) {
  const auto skipped = static_cast<uint32_t>(readAt_ % blockSize_);
  const uint32_t piece = std::min(length, LargestPiece());
  const uint32_t blocks = (skipped + piece + blockSize_ - 1) / blockSize_ * blockSize_;
  if (!StartRead(readAt_ - skipped, Staging(), blocks)) return 0;
  if (WaitForTransfer(kTransferMs) < static_cast<int32_t>(skipped + piece)) return 0;
  std::memcpy(data, Staging() + skipped, piece);
  readAt_ += piece;
  return piece;
}

TmyFileDirect::Closed TmyFileDirect::CloseDirect() {
  if (transferring_) CancelIo(Handle());
  WaitForTransfer(INFINITE);  // only for what was cancelled
  const bool hasTail = IsOpen() && writtenTo_ && tailUsed_ != 0;
  Close();
  const Closed closed = hasTail ? WriteTail() : Closed::kWhole;
  Close();
  return closed;
}

// An ordinary handle takes what is no whole block.
TmyFileDirect::Closed TmyFileDirect::WriteTail() {
  const auto opens = [this] { return Open(GENERIC_WRITE, OPEN_EXISTING, FILE_SHARE_READ, FILE_ATTRIBUTE_NORMAL); };
  if (hangs_ || !HeldFile::TryFor(opens)) {
    Trace::Line("FileDirect tail not written: not opened again");
    return Closed::kNotReopened;
  }
  LARGE_INTEGER base = {};
  base.QuadPart = static_cast<LONGLONG>(base_);
  if (SetFilePointerEx(Handle(), base, nullptr, FILE_BEGIN) && TmyFile::Write(Tail(), tailUsed_)) return Closed::kWhole;
  const DWORD error = GetLastError();
  Trace::Line("FileDirect tail not written, err=%d", static_cast<int>(error));
  return Closed::kTailLost;
}

// Marlux 3. A file that goes past the system's cache: bytes of any length are appended and leave in whole blocks.
//
//   TmyFileDirect file(name, false, true, 0x100000);
//   file.Write(samples, length);          // in the tail or on the disk when it returns
//
// What does not fill a block waits in the tail, which goes out through an ordinary handle when the file is closed. At
// most one transfer is under way, and none outlives the call that started it: a transfer that takes too long is
// cancelled and its end awaited before its buffer is touched again. Nothing is allocated after the opening.
//
// Errors: a file that cannot be opened leaves a line in the trace, and every operation on it fails. A write that fails
// leaves the blocks that reached the disk in the file and drops the rest of that call; the next write goes on behind
// them, so a disk that was full for a while costs only that while. After a transfer that had to be cancelled, or
// failed as late, all transfers fail at once for a minute: the owner's thread must not wait again and again for a
// device that hangs. Then there is another try. The tail of a file that is closed meanwhile is given up. A drive that
// was gone for a while (sleep, a cable) comes back under its name, not under the handle: after a write that failed, and
// not for want of room, the file is opened again, at most every two seconds, and goes on where the same bytes are still
// in it.
#pragma once

#include <memory>

#include "foundation/SystemHandle.h"
#include "foundation/TmyFile.h"

class TmyFileDirect : public TmyFile {
 public:
  // Only to read: the file must exist. Otherwise `create` makes it or empties it; without `create` bytes are appended
  // to what it holds. Other programs may read. `bufferSize` is the room for one transfer in bytes, at least 2 blocks.
  TmyFileDirect(const TmyString& name, bool readOnly, bool create, uint32_t bufferSize);
  ~TmyFileDirect() override;

  [[nodiscard]] uint64_t Size() const override;      // with the bytes that wait in the tail
  [[nodiscard]] uint64_t Position() const override;  // where the next byte goes, or comes from when only reading
  // Any length. False when not all of it went out; Position() tells how much did.
  bool Write(const void* data, uint32_t length) override;
  // One piece after another, only of a file opened to read.
  bool Read(void* data, uint32_t length) override;

  [[nodiscard]] uint32_t BlockSize() const noexcept { return blockSize_; }  // 0 when the file was not opened
  [[nodiscard]] uint32_t LargestPiece() const noexcept;                     // bytes that Write hands over at once

  // A sector, or 16 of them where one is no multiple of 16 bytes: a sector of 520 gives 8320.
  [[nodiscard]] static constexpr uint32_t BlockSizeFor(uint32_t bytesPerSector) noexcept {
    return bytesPerSector % 16 == 0 ? bytesPerSector : bytesPerSector * 16;
  }

 protected:
  enum class Appended { kRefused, kInTail, kStarted };  // kStarted: WaitForTransfer tells the outcome

  // Memory for unbuffered transfers: whole pages, zero, at an address that every block size accepts.
  struct PageDeleter {
    void operator()(uint8_t* pages) const noexcept { VirtualFree(pages, 0, MEM_RELEASE); }
  };
  using Pages = std::unique_ptr<uint8_t[], PageDeleter>;
  [[nodiscard]] static Pages MakePages(uint32_t bytes) noexcept;  // null when there is no memory

  // Refuses what is longer than tail and staging buffer take together, and everything while a transfer is under way.
  virtual Appended Append(uint32_t length, const void* data);
  // Start a transfer of whole blocks at an offset that is a multiple of the block. The buffer must live until
  // WaitForTransfer has returned. False when the system did not take it.
  virtual bool StartRead(uint64_t offset, void* buffer, uint32_t length);
  virtual bool StartWrite(uint64_t offset, const void* buffer, uint32_t length);
  // Returns the bytes transferred, 0 when a write was cut short, -1 when it took longer than `timeout` milliseconds
  // (INFINITE for no limit) and was cancelled, -2 when it failed. The transfer is over in every case.
  int32_t WaitForTransfer(DWORD timeout);
  // Ends the file with its tail. Where that was lost the file ends at AlignedBase().
  enum class Closed { kWhole, kTailLost, kNotReopened };  // kNotReopened: lost because the file cannot be opened again
  Closed CloseDirect();
  [[nodiscard]] bool Hangs() const noexcept { return hangs_; }  // the last transfer was cancelled, or failed late
  void TryAgain() noexcept { hangs_ = false; }                  // the next transfer waits for no minute

  [[nodiscard]] uint64_t AlignedBase() const noexcept { return base_; }  // bytes in whole blocks, all on the disk
  [[nodiscard]] uint8_t* Staging() noexcept { return memory_.get() + blockSize_; }  // at least 2 blocks

 private:
  bool Prepare(uint32_t bufferSize);
  bool ReadTail(uint32_t length);
  Closed WriteTail();
  bool AppendPiece(const void* data, uint32_t length);
  uint32_t ReadPiece(uint8_t* data, uint32_t length);
  bool BeginTransfer(uint64_t offset, const void* buffer, uint32_t length);
  [[nodiscard]] bool IsAligned(uint64_t offset, const void* buffer, uint32_t length) const noexcept;
  bool TransferStarted(BOOL taken) noexcept;
  [[nodiscard]] bool IsLate() const noexcept;
  void SetHangs(bool hangs) noexcept;
  void SetLost(DWORD error) noexcept;
  void RenewHandle();
  int32_t CountWritten(uint32_t bytes, uint32_t staged);
  [[nodiscard]] bool IsGivenUp() const noexcept;  // the device hangs, and it is not yet time for another try
  [[nodiscard]] uint64_t LogicalEnd() const noexcept { return base_ + tailUsed_; }
  [[nodiscard]] uint8_t* Tail() noexcept { return memory_.get(); }

  uint32_t blockSize_ = 0;
  uint32_t stagingCapacity_ = 0;
  uint32_t tailUsed_ = 0;    // always less than a block
  uint32_t staged_ = 0;      // bytes that the write under way takes from the staging buffer, 0 for other transfers
  uint32_t stagedTail_ = 0;  // bytes behind them, which become the tail when all goes well
  uint64_t base_ = 0;        // offset of the tail's first byte, a multiple of the block
  uint64_t readAt_ = 0;
  Pages memory_;  // the tail, one block, and behind it the staging buffer
  SystemHandle event_;
  OVERLAPPED overlapped_ = {};
  bool transferring_ = false;
  bool writtenTo_ = false;
  uint32_t begunAt_ = 0;  // ticks, of the last transfer
  bool hangs_ = false;
  uint32_t hungAt_ = 0;     // ticks
  bool mayBeLost_ = false;  // the handle: the last transfer failed, and not for want of room
  uint32_t renewedAt_ = 0;  // ticks, of that or of the last try to get another one
  const bool readOnly_;
};

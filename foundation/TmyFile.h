// Marlux 3. A plain file: opened once, read and written one piece after another, closed by its destruction.
//
//   TmyFile file(name, GENERIC_READ, OPEN_EXISTING);
//   while (const uint32_t count = file.ReadSome(piece, sizeof piece).value_or(0)) ...
//
// A file that cannot be opened only leaves a line in the trace; every operation on it then fails, sizes are 0.
#pragma once

#include <windows.h>

#include <optional>
#include <utility>

#include "foundation/SystemHandle.h"
#include "foundation/TmyObject.h"
#include "foundation/TmyString.h"

class TmyFile : public TmyObject {
 public:
  static constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;

  // The arguments are those of CreateFileA. OPEN_ALWAYS without the right to write means OPEN_EXISTING: who only reads
  // makes no files. A name that begins "\\.\PHYSICALDRIVE" opens a raw disk.
  TmyFile(const TmyString& name, DWORD access, DWORD disposition, DWORD share = kShareAll,
          DWORD flags = FILE_ATTRIBUTE_NORMAL);
  ~TmyFile() override = default;

  [[nodiscard]] virtual uint64_t Size() const;            // bytes; that of the device for a raw disk
  [[nodiscard]] virtual uint64_t Position() const;        // bytes from the start
  virtual bool Write(const void* data, uint32_t length);  // false when not all of it went out
  virtual bool Read(void* data, uint32_t length);         // true also at the end of the file, with fewer bytes

  // Returns how many bytes came: fewer at the end of the file, 0 behind it; nothing on failure.
  std::optional<uint32_t> ReadSome(void* data, uint32_t length);
  [[nodiscard]] bool IsOpen() const noexcept { return handle_ != nullptr; }
  [[nodiscard]] DWORD OpenError() const noexcept { return openError_; }  // the system's code of the last open; 0: none
  [[nodiscard]] const TmyString& Name() const noexcept { return name_; }

 protected:
  [[nodiscard]] HANDLE Handle() const noexcept { return handle_.get(); }  // null when not open
  void Close() noexcept;
  // Closes first.
  bool Open(DWORD access, DWORD disposition, DWORD share, DWORD flags);
  void TakeHandle(TmyFile& from) noexcept { handle_ = std::move(from.handle_); }  // in place of the own one

 private:
  [[nodiscard]] bool IsRawDisk() const noexcept;

  TmyString name_;
  SystemHandle handle_;
  DWORD openError_ = 0;
};

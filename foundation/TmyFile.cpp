#include "foundation/TmyFile.h"

#include <winioctl.h>

#include "foundation/Trace.h"

namespace {
constexpr std::string_view kRawDisk = "\\\\.\\PHYSICALDRIVE";
}

TmyFile::TmyFile(const TmyString& name, DWORD access, DWORD disposition, DWORD share, DWORD flags) : name_(name) {
  Open(access, disposition, share, flags);
}

bool TmyFile::Open(DWORD access, DWORD disposition, DWORD share, DWORD flags) {
  Close();
  constexpr DWORD kWriteRights = GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA | FILE_APPEND_DATA;
  if (disposition == OPEN_ALWAYS && (access & kWriteRights) == 0) disposition = OPEN_EXISTING;
  handle_.reset(HandleOrNull(CreateFileA(name_.Chars(), access, share, nullptr, disposition, flags, nullptr)));
  openError_ = handle_ ? 0 : GetLastError();
  if (!handle_) Trace::Line("File not opened, err=%d", static_cast<int>(openError_));
  SetLastError(openError_);  // the trace may have left another one
  return IsOpen();
}

void TmyFile::Close() noexcept {
  handle_.reset();
}

bool TmyFile::IsRawDisk() const noexcept {
  return name_.View().starts_with(kRawDisk);
}

uint64_t TmyFile::Size() const {
  if (!handle_) return 0;
  if (IsRawDisk()) {
    GET_LENGTH_INFORMATION length = {};
    DWORD got = 0;
    const BOOL told =
        DeviceIoControl(Handle(), IOCTL_DISK_GET_LENGTH_INFO, nullptr, 0, &length, sizeof length, &got, nullptr);
    return told ? static_cast<uint64_t>(length.Length.QuadPart) : 0;
  }
  LARGE_INTEGER size = {};
  return GetFileSizeEx(Handle(), &size) ? static_cast<uint64_t>(size.QuadPart) : 0;
}

uint64_t TmyFile::Position() const {
  LARGE_INTEGER position = {};
  if (!handle_ || !SetFilePointerEx(Handle(), {}, &position, FILE_CURRENT)) return 0;
  return static_cast<uint64_t>(position.QuadPart);
}

bool TmyFile::Write(const void* data, uint32_t length) {
  DWORD written = 0;
  return handle_ && WriteFile(Handle(), data, length, &written, nullptr) && written == length;
}

bool TmyFile::Read(void* data, uint32_t length) {
  DWORD got = 0;
  return handle_ && ReadFile(Handle(), data, length, &got, nullptr);
}

std::optional<uint32_t> TmyFile::ReadSome(void* data, uint32_t length) {
  DWORD got = 0;
  if (!handle_ || !ReadFile(Handle(), data, length, &got, nullptr)) return std::nullopt;
  return got;
}

#include <fcntl.h>
#include <sanitizer/asan_interface.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "foundation/Clock.h"

struct RegistryKey : std::map<std::string, std::pair<DWORD, std::vector<BYTE>>> {};  // type and data of each value

namespace {

DWORD lastError = ERROR_SUCCESS;
uint32_t ticksAhead = 0;

BOOL Fail(DWORD error) {
  lastError = error;
  return FALSE;
}

std::string Slashed(const char* name) {
  std::string path = name;
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

HANDLE HandleOf(int fd) {
  return reinterpret_cast<HANDLE>(fd);
}
int Fd(HANDLE handle) {
  return reinterpret_cast<int>(handle);
}

// Who lets others write locks a file together with them, who does not locks it alone.
bool IsLocked(int fd, DWORD share) {
  return flock(fd, LOCK_NB | ((share & FILE_SHARE_WRITE) ? LOCK_SH : LOCK_EX)) != 0;
}

bool IsHeld(const std::string& path) {
  const int fd = open(path.c_str(), O_RDONLY);
  const bool isHeld = fd >= 0 && IsLocked(fd, 0);
  close(fd);
  return isHeld;
}

constexpr int64_t kSecond = 10'000'000, kUnixEpoch = 11644473600;

int64_t Ticks(const FILETIME& time) {
  return static_cast<int64_t>(uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

FILETIME FileTime(int64_t ticks) {
  return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

std::map<std::string, RegistryKey> registry;  // whose entries stay where they are

}  // namespace

DWORD GetLastError() {
  return lastError;
}
void SetLastError(DWORD error) {
  lastError = error;
}

uint32_t Clock::Ticks() noexcept {
  using namespace std::chrono;
  return static_cast<uint32_t>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count()) +
         ticksAhead;
}
void Clock::AdvanceTicks(uint32_t milliseconds) noexcept {
  ticksAhead += milliseconds;
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* t, FILETIME* file) {
  using namespace std::chrono;
  const year_month_day date{year{t->wYear}, month{t->wMonth}, day{t->wDay}};
  if (!date.ok() || t->wYear < 1601 || t->wHour > 23 || t->wMinute > 59 || t->wSecond > 59 || t->wMilliseconds > 999) {
    return Fail(ERROR_INVALID_PARAMETER);
  }
  const int64_t days = sys_days{date}.time_since_epoch().count();
  const int64_t seconds = ((days * 24 + t->wHour) * 60 + t->wMinute) * 60 + t->wSecond + kUnixEpoch;
  *file = FileTime(seconds * kSecond + t->wMilliseconds * (kSecond / 1000));
  return TRUE;
}

BOOL FileTimeToSystemTime(const FILETIME* file, SYSTEMTIME* t) {
  using namespace std::chrono;
  const int64_t ticks = Ticks(*file);
  if (ticks < 0) return Fail(ERROR_INVALID_PARAMETER);
  const int64_t seconds = ticks / kSecond, inDay = seconds % 86400;
  const sys_days at{days{static_cast<int>(seconds / 86400 - kUnixEpoch / 86400)}};
  const year_month_day date{at};
  if (date.year() > year{30827}) return Fail(ERROR_INVALID_PARAMETER);
  const int64_t parts[] = {int{date.year()},
                           unsigned{date.month()},
                           weekday{at}.c_encoding(),
                           unsigned{date.day()},
                           inDay / 3600,
                           inDay / 60 % 60,
                           inDay % 60,
                           ticks % kSecond / 10'000};
  std::copy(std::begin(parts), std::end(parts), &t->wYear);
  return TRUE;
}

void* VirtualAlloc(void*, SIZE_T size, DWORD, DWORD) {
  void* const block = std::aligned_alloc(4096, (size + 4095) / 4096 * 4096);
  return block ? std::memset(block, 0, size) : nullptr;
}
BOOL VirtualFree(void* at, SIZE_T, DWORD) {
  std::free(at);
  return TRUE;
}
SIZE_T VirtualQuery(const void* at, MEMORY_BASIC_INFORMATION* region, SIZE_T size) {
  constexpr SIZE_T kMost = 0x10000;
  auto* const begin = static_cast<char*>(const_cast<void*>(at));
  const void* const end = __asan_region_is_poisoned(begin, kMost);
  const SIZE_T length = end ? static_cast<SIZE_T>(static_cast<const char*>(end) - begin) : kMost;
  *region = {begin, length, length > 0 ? DWORD{MEM_COMMIT} : 0, PAGE_READWRITE};
  return size;
}

HANDLE CreateFileA(const char* name, DWORD access, DWORD share, void*, DWORD disposition, DWORD, HANDLE) {
  const int flags = (access & GENERIC_WRITE) ? O_RDWR : O_RDONLY;
  const int fd = open(Slashed(name).c_str(), flags | (disposition == OPEN_EXISTING ? 0 : O_CREAT), 0666);
  const bool isLocked = fd >= 0 && IsLocked(fd, share);
  if (fd < 0 || isLocked) {
    close(fd);
    Fail(isLocked ? ERROR_SHARING_VIOLATION : (access & GENERIC_WRITE) ? ERROR_ACCESS_DENIED : ERROR_FILE_NOT_FOUND);
    return INVALID_HANDLE_VALUE;
  }
  if (disposition == CREATE_ALWAYS) ftruncate(fd, 0);
  return HandleOf(fd);
}

BOOL CloseHandle(HANDLE handle) {
  return close(Fd(handle)) == 0;
}

namespace {
BOOL Transferred(ssize_t count, DWORD* told, OVERLAPPED* at) {
  if (count < 0) return Fail(ERROR_INVALID_HANDLE);
  if (told) *told = static_cast<DWORD>(count);
  if (at) at->done = static_cast<DWORD>(count);
  return TRUE;
}
off64_t OffsetOf(const OVERLAPPED& at) {
  return static_cast<off64_t>(uint64_t{at.OffsetHigh} << 32 | at.Offset);
}
}  // namespace

BOOL ReadFile(HANDLE handle, void* data, DWORD length, DWORD* got, OVERLAPPED* at) {
  const int fd = Fd(handle);
  return Transferred(at ? pread64(fd, data, length, OffsetOf(*at)) : read(fd, data, length), got, at);
}
BOOL WriteFile(HANDLE handle, const void* data, DWORD length, DWORD* written, OVERLAPPED* at) {
  const int fd = Fd(handle);
  return Transferred(at ? pwrite64(fd, data, length, OffsetOf(*at)) : write(fd, data, length), written, at);
}

BOOL GetFileSizeEx(HANDLE handle, LARGE_INTEGER* size) {
  struct stat64 status;
  if (fstat64(Fd(handle), &status) != 0) return FALSE;
  size->QuadPart = status.st_size;
  return TRUE;
}
BOOL SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD from) {
  const off64_t at = lseek64(Fd(handle), distance.QuadPart, from == FILE_BEGIN ? SEEK_SET : SEEK_CUR);
  if (position) position->QuadPart = at;
  return at >= 0;
}
BOOL SetEndOfFile(HANDLE handle) {
  return ftruncate64(Fd(handle), lseek64(Fd(handle), 0, SEEK_CUR)) == 0;
}
HANDLE CreateEventA(void*, BOOL, BOOL, const char*) {
  return HandleOf(open("/dev/null", O_RDONLY));
}

HANDLE CreateFileMappingA(HANDLE file, void*, DWORD, DWORD, DWORD, const char*) {
  return HandleOf(dup(Fd(file)));
}
void* MapViewOfFile(HANDLE mapping, DWORD, DWORD, DWORD, SIZE_T) {
  LARGE_INTEGER size = {};
  GetFileSizeEx(mapping, &size);
  const auto bytes = static_cast<size_t>(size.QuadPart);
  void* const view = std::malloc(bytes);
  if (pread64(Fd(mapping), view, bytes, 0) == size.QuadPart) return view;
  std::free(view);
  return nullptr;
}
BOOL UnmapViewOfFile(const void* view) {
  std::free(const_cast<void*>(view));
  return TRUE;
}

DWORD GetFileAttributesA(const char* name) {
  return access(Slashed(name).c_str(), F_OK) == 0 ? DWORD{FILE_ATTRIBUTE_NORMAL} : DWORD{INVALID_FILE_ATTRIBUTES};
}
BOOL DeleteFileA(const char* name) {
  return unlink(Slashed(name).c_str()) == 0;
}
BOOL MoveFileExA(const char* from, const char* to, DWORD) {
  const std::string old = Slashed(from), path = Slashed(to);
  if (IsHeld(path)) return Fail(ERROR_SHARING_VIOLATION);
  return rename(old.c_str(), path.c_str()) == 0 || Fail(ERROR_ACCESS_DENIED);
}
BOOL CreateDirectoryA(const char* name, void*) {
  return mkdir(Slashed(name).c_str(), 0777) == 0 || Fail(ERROR_ALREADY_EXISTS);
}
DWORD GetTempPathA(DWORD size, char* path) {
  const char* const folder = std::getenv("TMPDIR");
  return static_cast<DWORD>(snprintf(path, size, "%s/", folder ? folder : "/tmp"));
}

LSTATUS RegOpenKeyExA(HKEY, const char* name, DWORD, REGSAM, HKEY* key) {
  const auto found = registry.find(name);
  if (found == registry.end()) return ERROR_FILE_NOT_FOUND;
  *key = &found->second;
  return ERROR_SUCCESS;
}
LSTATUS RegCreateKeyExA(HKEY, const char* name, DWORD, char*, DWORD, REGSAM, void*, HKEY* key, DWORD*) {
  *key = &registry[name];
  return ERROR_SUCCESS;
}
LSTATUS RegCloseKey(HKEY) {
  return ERROR_SUCCESS;
}
LSTATUS RegQueryValueExA(HKEY key, const char* name, DWORD*, DWORD* type, BYTE* data, DWORD* size) {
  const auto found = key->find(name);
  if (found == key->end()) return ERROR_FILE_NOT_FOUND;
  const auto& [kind, bytes] = found->second;
  if (type) *type = kind;
  if (data) std::copy_n(bytes.begin(), std::min<size_t>(*size, bytes.size()), data);
  if (size) *size = static_cast<DWORD>(bytes.size());
  return ERROR_SUCCESS;
}
LSTATUS RegSetValueExA(HKEY key, const char* name, DWORD, DWORD type, const BYTE* data, DWORD size) {
  (*key)[name] = {type, {data, data + size}};
  return ERROR_SUCCESS;
}
LSTATUS RegSetKeyValueA(HKEY, const char* key, const char* name, DWORD type, const void* data, DWORD size) {
  return RegSetValueExA(&registry[key], name, 0, type, static_cast<const BYTE*>(data), size);
}
LSTATUS RegDeleteValueA(HKEY key, const char* name) {
  return key->erase(name) == 1 ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
}
LSTATUS RegDeleteKeyA(HKEY, const char* name) {
  return registry.erase(name) == 1 ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
}

// Names with backslashes also come to the C runtime; the linker sends its calls here.
extern "C" {
FILE* __real_fopen(const char* name, const char* mode);
FILE* __real_fopen64(const char* name, const char* mode);
int __real_open(const char* name, int flags, mode_t mode);

FILE* __wrap_fopen(const char* name, const char* mode) {
  return __real_fopen(Slashed(name).c_str(), mode);
}
FILE* __wrap_fopen64(const char* name, const char* mode) {
  return __real_fopen64(Slashed(name).c_str(), mode);
}
int __wrap_open(const char* name, int flags, mode_t mode) {
  return __real_open(Slashed(name).c_str(), flags, mode);
}
}

#include <fcntl.h>
#include <sanitizer/asan_interface.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <map>
#include <string>

namespace {

DWORD lastError = ERROR_SUCCESS;

BOOL Fail(DWORD error) {
  lastError = error;
  return FALSE;
}

std::string Slashed(const char* name) {
  std::string path = name;
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

struct Object {
  int fd = -1;  // none for events
  std::string path;
  DWORD access = 0, share = 0;
};
std::map<HANDLE, Object> objects;

HANDLE Keep(Object object) {
  static uintptr_t next = 0x100;
  const auto handle = reinterpret_cast<HANDLE>(next += 4);
  objects[handle] = std::move(object);
  return handle;
}

int Fd(HANDLE handle) {
  const auto found = objects.find(handle);
  if (found == objects.end()) Fail(ERROR_INVALID_HANDLE);
  return found == objects.end() ? -1 : found->second.fd;
}

bool Fits(DWORD access, DWORD share) {
  return (!(access & GENERIC_READ) || share & FILE_SHARE_READ) &&
         (!(access & GENERIC_WRITE) || share & FILE_SHARE_WRITE);
}

bool IsHeld(const std::string& path) {
  return std::any_of(objects.begin(), objects.end(), [&](const auto& entry) { return entry.second.path == path; });
}

bool IsFolder(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

constexpr int64_t kSecond = 10'000'000, kUnixEpoch = 11644473600;

int64_t Ticks(const FILETIME& time) {
  return static_cast<int64_t>(uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

FILETIME FileTime(int64_t ticks) {
  return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

}  // namespace

DWORD GetLastError() {
  return lastError;
}

DWORD GetTickCount() {
  using namespace std::chrono;
  return static_cast<DWORD>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

int WideCharToMultiByte(UINT, DWORD, const wchar_t* text, int, char* to, int size, const char*, BOOL*) {
  const int needed = static_cast<int>(wcslen(text)) + 1;
  for (int i = 0; to && i < std::min(needed, size); ++i) to[i] = static_cast<char>(text[i] < 256 ? text[i] : '?');
  return needed;
}

void GetSystemTimeAsFileTime(FILETIME* time) {
  *time = FileTime((std::time(nullptr) + kUnixEpoch) * kSecond);
}
BOOL FileTimeToLocalFileTime(const FILETIME* utc, FILETIME* local) {
  *local = *utc;
  return TRUE;
}
void GetSystemTime(SYSTEMTIME* time) {
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  FileTimeToSystemTime(&now, time);
}
void GetLocalTime(SYSTEMTIME* time) {
  GetSystemTime(time);
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

namespace {
std::map<void*, SIZE_T> reserved;
}

void* VirtualAlloc(void* at, SIZE_T size, DWORD kind, DWORD) {
  const bool commits = (kind & MEM_COMMIT) != 0;
  if (at) return mprotect(at, size, PROT_READ | PROT_WRITE) == 0 ? at : nullptr;
  void* const block = mmap(nullptr, size, commits ? PROT_READ | PROT_WRITE : PROT_NONE,
                           MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (block == MAP_FAILED) return nullptr;
  reserved[block] = size;
  return block;
}
BOOL VirtualFree(void* at, SIZE_T size, DWORD kind) {
  if (kind == MEM_RELEASE) {
    munmap(at, reserved[at]);
    return reserved.erase(at) == 1;
  }
  return mmap(at, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_FIXED, -1, 0) == at;
}
SIZE_T VirtualQuery(const void* at, MEMORY_BASIC_INFORMATION* region, SIZE_T size) {
  constexpr SIZE_T kMost = 0x10000;
  auto* const begin = static_cast<char*>(const_cast<void*>(at));
  const void* const end = __asan_region_is_poisoned(begin, kMost);
  const SIZE_T length = end ? static_cast<SIZE_T>(static_cast<const char*>(end) - begin) : kMost;
  *region = {begin, length, length > 0 ? DWORD{MEM_COMMIT} : 0, PAGE_READWRITE};
  return size;
}
BOOL VirtualProtect(void* at, SIZE_T size, DWORD protection, DWORD*) {
  return mprotect(at, size, protection == PAGE_NOACCESS ? PROT_NONE : PROT_READ | PROT_WRITE) == 0;
}

HANDLE CreateFileA(const char* name, DWORD access, DWORD share, void*, DWORD disposition, DWORD, HANDLE) {
  Object object{-1, Slashed(name), access, share};
  for (const auto& [handle, other] : objects) {
    if (other.path != object.path || (Fits(access, other.share) && Fits(other.access, share))) continue;
    Fail(ERROR_SHARING_VIOLATION);
    return INVALID_HANDLE_VALUE;
  }
  int flags = access & GENERIC_WRITE ? O_RDWR : O_RDONLY;
  if (disposition != OPEN_EXISTING) flags |= O_CREAT;
  if (disposition == CREATE_ALWAYS) flags |= O_TRUNC;
  if (!IsFolder(object.path)) object.fd = open(object.path.c_str(), flags, 0666);
  if (object.fd >= 0) return Keep(std::move(object));
  Fail(access & GENERIC_WRITE ? ERROR_ACCESS_DENIED : ERROR_FILE_NOT_FOUND);
  return INVALID_HANDLE_VALUE;
}

BOOL CloseHandle(HANDLE handle) {
  const int fd = Fd(handle);
  if (fd >= 0) close(fd);
  return objects.erase(handle) == 1;
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
HANDLE CreateEventA(void*, BOOL, BOOL, const char*) {
  return Keep({});
}

HANDLE CreateFileMappingA(HANDLE file, void*, DWORD, DWORD, DWORD, const char*) {
  return Keep({dup(Fd(file)), {}, 0, 0});
}
void* MapViewOfFile(HANDLE mapping, DWORD, DWORD, DWORD, SIZE_T) {
  LARGE_INTEGER size;
  if (!GetFileSizeEx(mapping, &size)) return nullptr;
  void* const view = std::malloc(static_cast<size_t>(size.QuadPart));
  const ssize_t got = view ? pread64(Fd(mapping), view, static_cast<size_t>(size.QuadPart), 0) : -1;
  if (got == size.QuadPart) return view;
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
  const std::string path = Slashed(name);
  return IsHeld(path) ? Fail(ERROR_SHARING_VIOLATION) : unlink(path.c_str()) == 0;
}
BOOL MoveFileExA(const char* from, const char* to, DWORD) {
  const std::string old = Slashed(from), path = Slashed(to);
  if (IsHeld(old) || IsHeld(path)) return Fail(ERROR_SHARING_VIOLATION);
  return rename(old.c_str(), path.c_str()) == 0 || Fail(ERROR_ACCESS_DENIED);
}
BOOL CreateDirectoryA(const char* name, void*) {
  return mkdir(Slashed(name).c_str(), 0777) == 0 || Fail(ERROR_ALREADY_EXISTS);
}
DWORD GetTempPathA(DWORD size, char* path) {
  const char* const folder = std::getenv("TMPDIR");
  return static_cast<DWORD>(snprintf(path, size, "%s/", folder ? folder : "/tmp"));
}
UINT GetTempFileNameA(const char* folder, const char* prefix, UINT, char* path) {
  static UINT made = 0;
  snprintf(path, MAX_PATH, "%s%s%u.tmp", folder, prefix, ++made);
  return made;
}

// Names with backslashes also come to the C runtime; the linker sends its calls here.
extern "C" {
FILE* __real_fopen(const char* name, const char* mode);
FILE* __real_fopen64(const char* name, const char* mode);
int __real_open(const char* name, int flags, ...);

FILE* __wrap_fopen(const char* name, const char* mode) {
  return __real_fopen(Slashed(name).c_str(), mode);
}
FILE* __wrap_fopen64(const char* name, const char* mode) {
  return __real_fopen64(Slashed(name).c_str(), mode);
}
int __wrap_open(const char* name, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = va_arg(arguments, mode_t);
  va_end(arguments);
  return __real_open(Slashed(name).c_str(), flags, mode);
}
}

// Marlux 3. The few Windows calls of the parts that are built natively for sanitizers: files on POSIX, the registry in
// memory, one thread. Only what those parts use, and no more truth than their tests ask for.
#pragma once

#include <cstdint>
#include <cstdio>

using BOOL = int;
using BYTE = uint8_t;
using WORD = uint16_t;
using DWORD = unsigned long;
using LSTATUS = long;
using LONGLONG = int64_t;
using REGSAM = DWORD;
using SIZE_T = size_t;
using HANDLE = void*;
using HKEY = struct RegistryKey*;
struct FILETIME {
  DWORD dwLowDateTime, dwHighDateTime;
};
struct SYSTEMTIME {
  WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};
union LARGE_INTEGER {
  LONGLONG QuadPart;
};
struct OVERLAPPED {
  DWORD done, Offset, OffsetHigh;
  HANDLE hEvent;
};
struct CRITICAL_SECTION {};

enum : BOOL { FALSE, TRUE };
constexpr DWORD ERROR_SUCCESS = 0, ERROR_FILE_NOT_FOUND = 2, ERROR_ACCESS_DENIED = 5, ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_SHARING_VIOLATION = 32, ERROR_HANDLE_DISK_FULL = 39, ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_ALREADY_EXISTS = 183, ERROR_IO_PENDING = 997;
constexpr DWORD GENERIC_READ = 0x80000000, GENERIC_WRITE = 0x40000000, GENERIC_ALL = 0x10000000;
constexpr DWORD FILE_SHARE_READ = 1, FILE_SHARE_WRITE = 2, CREATE_ALWAYS = 2, OPEN_EXISTING = 3, OPEN_ALWAYS = 4;
constexpr DWORD FILE_WRITE_DATA = 2, FILE_APPEND_DATA = 4, FILE_BEGIN = 0, FILE_CURRENT = 1;
constexpr DWORD MOVEFILE_REPLACE_EXISTING = 1, MOVEFILE_WRITE_THROUGH = 8, FILE_MAP_READ = 4;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 128, FILE_FLAG_NO_BUFFERING = 0x20000000;
constexpr DWORD FILE_FLAG_OVERLAPPED = 0x40000000, INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
constexpr DWORD MAX_PATH = 260, INFINITE = 0xFFFFFFFF, WAIT_OBJECT_0 = 0, PIPE_ACCESS_DUPLEX = 3;
constexpr DWORD PAGE_NOACCESS = 1, PAGE_READONLY = 2, PAGE_READWRITE = 4, PAGE_WRITECOPY = 8;
constexpr DWORD PAGE_EXECUTE_READ = 0x20, PAGE_EXECUTE_READWRITE = 0x40, PAGE_EXECUTE_WRITECOPY = 0x80;
constexpr DWORD PAGE_GUARD = 0x100;
constexpr DWORD MEM_COMMIT = 0x1000, MEM_RESERVE = 0x2000, MEM_RELEASE = 0x8000;
constexpr DWORD REG_NONE = 0, REG_SZ = 1, REG_BINARY = 3, REG_DWORD = 4, KEY_ALL_ACCESS = 0xF003F;
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(-1))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(1))

DWORD GetLastError();
void SetLastError(DWORD error);
inline void OutputDebugStringA(const char*) {}
inline DWORD GetCurrentProcessId() {
  return 1;
}
inline void InitializeCriticalSection(CRITICAL_SECTION*) {}
inline void DeleteCriticalSection(CRITICAL_SECTION*) {}
inline void EnterCriticalSection(CRITICAL_SECTION*) {}
inline void LeaveCriticalSection(CRITICAL_SECTION*) {}

// Times between 1601 and 30827, as the system takes them.
BOOL SystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* file);
BOOL FileTimeToSystemTime(const FILETIME* file, SYSTEMTIME* time);

void* VirtualAlloc(void* at, SIZE_T size, DWORD kind, DWORD protection);
BOOL VirtualFree(void* at, SIZE_T size, DWORD kind);
struct MEMORY_BASIC_INFORMATION {
  void* BaseAddress;
  SIZE_T RegionSize;
  DWORD State, Protect;
};
// A region is what the sanitizer lets us touch: a heap block ends where its last byte does.
SIZE_T VirtualQuery(const void* at, MEMORY_BASIC_INFORMATION* region, SIZE_T size);

// Backslashes lead into folders. Sharing is checked as far as writing goes; transfers end before they return.
HANDLE CreateFileA(const char* name, DWORD access, DWORD share, void*, DWORD disposition, DWORD flags, HANDLE);
BOOL CloseHandle(HANDLE handle);
BOOL FindClose(HANDLE search);  // only named
BOOL ReadFile(HANDLE handle, void* data, DWORD length, DWORD* got, OVERLAPPED* at);
BOOL WriteFile(HANDLE handle, const void* data, DWORD length, DWORD* written, OVERLAPPED* at);
BOOL GetFileSizeEx(HANDLE handle, LARGE_INTEGER* size);
BOOL SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD from);
BOOL SetEndOfFile(HANDLE handle);
inline BOOL FlushFileBuffers(HANDLE) {
  return TRUE;
}
HANDLE CreateEventA(void*, BOOL, BOOL, const char*);
inline BOOL CancelIo(HANDLE) {
  return TRUE;
}
inline DWORD WaitForSingleObject(HANDLE, DWORD) {
  return WAIT_OBJECT_0;
}
inline BOOL HasOverlappedIoCompleted(const OVERLAPPED*) {
  return TRUE;
}
inline BOOL GetOverlappedResult(HANDLE, OVERLAPPED* at, DWORD* count, BOOL) {
  *count = at->done;
  return TRUE;
}
inline HANDLE CreateNamedPipeA(const char*, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, void*) {
  return INVALID_HANDLE_VALUE;
}
inline BOOL GetVolumePathNameA(const char*, char*, DWORD) {
  return TRUE;
}
inline BOOL GetDiskFreeSpaceA(const char*, DWORD*, DWORD* sectorBytes, DWORD*, DWORD*) {
  *sectorBytes = 512;
  return TRUE;
}
// A view is a block of its own, of the file's size to the byte.
HANDLE CreateFileMappingA(HANDLE file, void*, DWORD, DWORD, DWORD, const char*);
void* MapViewOfFile(HANDLE mapping, DWORD, DWORD, DWORD, SIZE_T);
BOOL UnmapViewOfFile(const void* view);
DWORD GetFileAttributesA(const char* name);
inline void Sleep(DWORD) noexcept {}  // nothing here is held by somebody else for a while
BOOL DeleteFileA(const char* name);
BOOL MoveFileExA(const char* from, const char* to, DWORD flags);
BOOL CreateDirectoryA(const char* name, void*);
DWORD GetTempPathA(DWORD size, char* path);  // that of TMPDIR

LSTATUS RegOpenKeyExA(HKEY hive, const char* name, DWORD, REGSAM, HKEY* key);
LSTATUS RegCreateKeyExA(HKEY hive, const char* name, DWORD, char*, DWORD, REGSAM, void*, HKEY* key, DWORD*);
LSTATUS RegCloseKey(HKEY key);
LSTATUS RegQueryValueExA(HKEY key, const char* name, DWORD*, DWORD* type, BYTE* data, DWORD* size);
LSTATUS RegSetValueExA(HKEY key, const char* name, DWORD, DWORD type, const BYTE* data, DWORD size);
LSTATUS RegSetKeyValueA(HKEY hive, const char* key, const char* name, DWORD type, const void* data, DWORD size);
LSTATUS RegDeleteValueA(HKEY key, const char* name);
LSTATUS RegDeleteKeyA(HKEY hive, const char* name);

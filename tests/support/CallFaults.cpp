#include "tests/support/CallFaults.h"

#include <winsock2.h>
// Those below need the one above first.
#include <commdlg.h>
#include <mmsystem.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <sstream>
#include <utility>

#include "tests/support/ImportTable.h"

namespace {

struct Group {
  const char* name;
  const char* functions;  // each with the words of its arguments, which it removes; without them its caller does
  uint32_t result = 0;
  DWORD error = ERROR_NOT_ENOUGH_MEMORY;  // for errno and Winsock, too
};

constexpr uint32_t kMinusOne = 0xFFFFFFFF;
constexpr Group kGroups[] = {
    {"memory", "malloc calloc realloc", 0, ENOMEM},
    {"memory", "GlobalAlloc 2 GlobalLock 1 VirtualAlloc 4 CommandLineToArgvW 2 FormatMessageA 7"},
    {"system", "LoadLibraryA 1 GetModuleHandleExA 3", 0, ERROR_MOD_NOT_FOUND},
    {"system", "GetTimeFormatA 6 GetDateFormatA 6 GetLocaleInfoA 4", 0, ERROR_INVALID_PARAMETER},
    {"files", "CreateFileA 7 FindFirstFileA 2 GetFileAttributesA 1", kMinusOne, ERROR_ACCESS_DENIED},
    {"files", "CreateDirectoryA 2 DeleteFileA 1 MoveFileExA 3 GetTempFileNameA 4", 0, ERROR_ACCESS_DENIED},
    {"files", "ReadFile 5 SetFilePointerEx 5 GetFileSizeEx 2 FindNextFileA 2", 0, ERROR_CRC},
    {"files", "WriteFile 5 SetEndOfFile 1 FlushFileBuffers 1 GetOverlappedResult 4 DeviceIoControl 8", 0,
     ERROR_DISK_FULL},
    {"files", "CreateEventA 4 CreateFileMappingA 6 MapViewOfFile 5 GetDiskFreeSpaceA 5 GetVolumePathNameA 3"},
    {"files", "GetShortPathNameA 3 GetShortPathNameW 3 GetFullPathNameA 4 GetCurrentDirectoryW 2 GetOpenFileNameA 1"},
    {"files", "GetSaveFileNameA 1"},
    {"files", "WaitForSingleObject 2", WAIT_FAILED, ERROR_INVALID_HANDLE},
    {"files", "SHGetFolderPathW 5", static_cast<uint32_t>(E_FAIL)},
    {"files", "fopen fread", 0, EACCES},
    {"files", "fseek ftell _open _wopen _read _lseeki64", kMinusOne, EIO},
    {"registry", "RegCreateKeyExA 9 RegOpenKeyExA 5 RegQueryValueExA 6 RegDeleteValueA 2", ERROR_ACCESS_DENIED},
    {"registry", "RegSetValueExA 6", ERROR_NO_SYSTEM_RESOURCES},
    {"sockets", "WSAStartup 2", WSASYSNOTREADY},
    {"sockets", "socket 3 setsockopt 5 ioctlsocket 3 WSAAsyncSelect 4", kMinusOne, WSAENOBUFS},
    {"sockets", "gethostbyname 1", 0, WSATRY_AGAIN},
    {"sockets", "connect 3 send 4 recv 4", kMinusOne, WSAECONNRESET},
    {"windows", "RegisterClassExA 1 CreateWindowExA 12 SetWindowLongA 3 SetWindowTextA 2 GetWindowTextA 3"},
    {"windows", "SetWindowPos 7 GetWindowRect 2 GetClientRect 2 GetWindowPlacement 2 AdjustWindowRectEx 4"},
    {"windows", "GetMonitorInfoA 2 SystemParametersInfoA 4 PostMessageA 4 SetTimer 4 SetFocus 1 TrackMouseEvent 1"},
    {"windows", "GetCursorPos 1 CreateMenu 0 CreatePopupMenu 0 AppendMenuA 4 SetMenu 2 TrackPopupMenu 7"},
    {"windows", "LoadCursorA 2 LoadIconA 2 OpenClipboard 1 GetClipboardData 1"},
    {"windows", "EmptyClipboard 0 SetClipboardData 2"},
    {"windows", "GetMessageW 4", kMinusOne},
    {"drawing", "BeginPaint 2 GetDC 1 GetWindowDC 1 CreateCompatibleDC 1 CreateCompatibleBitmap 3"},
    {"drawing", "CreateFontIndirectA 1 SelectObject 2 SaveDC 1 GetClipBox 2 IntersectClipRect 5 ExcludeClipRect 5"},
    {"drawing", "BitBlt 9 GetTextExtentPoint32A 4 GetTextMetricsA 2 DrawTextA 5 FillRect 3"},
    {"drawing", "GetPixel 3", kMinusOne},
    {"sound", "mciSendCommandA 4", MCIERR_OUT_OF_MEMORY},
};

struct Function {
  const Group* group;
  std::string name;
  uint32_t words;
  ULONG_PTR real;
};

// Code that stands in an import's place: it says which function is meant, and ends by the address that DecideCall
// leaves.
#pragma pack(push, 1)
struct Stub {
  uint8_t push = 0x68;
  uint32_t function;
  uint8_t jump = 0xE9;
  uint32_t distance;
  uint8_t load = 0xB8;  // where a call that fails goes on
  uint32_t result;
  uint8_t leave = 0xC2;
  uint16_t bytes;
};
#pragma pack(pop)

struct StackedCall {
  ULONG_PTR function;  // in: its number; out: where to go on
  ULONG_PTR caller;
};

Stub* stubs = nullptr;
std::vector<Function> functions;
ULONG_PTR base = 0;
DWORD size = 0;
bool isOn = false;
bool isRefused = false;  // the window that is made next
uint32_t wait = 0;
std::set<CallFaults::Place> failedEver;

bool IsInside(ULONG_PTR address) {
  return address - base < size;
}

// Whether a call ends there that leads into the function around `inside`; where the target cannot be known, any call.
bool IsReturn(ULONG_PTR address, ULONG_PTR inside) {
  constexpr ULONG_PTR kLongestFunction = 0x2000;
  if (!IsInside(address - 8) || !IsInside(address)) return false;
  const auto* end = reinterpret_cast<const uint8_t*>(address);
  int32_t distance = 0;
  std::memcpy(&distance, end - 4, sizeof distance);
  if (end[-5] == 0xE8) return inside - (address + static_cast<ULONG_PTR>(distance)) < kLongestFunction;
  const auto isCall = [&](int length, int mask, int wanted) {
    return end[-length] == 0xFF && (end[1 - length] & mask) == wanted;
  };
  return isCall(2, 0xF8, 0xD0) || isCall(2, 0xF8, 0x10) || isCall(3, 0xF8, 0x50) || isCall(6, 0xF8, 0x90);
}

CallFaults::Place PlaceOf(const StackedCall& call) {
  CallFaults::Place place = {static_cast<uint32_t>(call.function), {}};
  if (!IsInside(call.caller)) return place;
  place.from[0] = call.caller - base;
  uint32_t count = 1;
  ULONG_PTR inside = call.caller;
  const ULONG_PTR* end = nullptr;
  asm("movl %%fs:4, %0" : "=r"(end));  // of the stack
  for (const ULONG_PTR* at = &call.caller + 1; at < end && count < CallFaults::callers; ++at) {
    if (*at == inside || !IsReturn(*at, inside)) continue;  // a function that aligns its stack has the address twice
    inside = *at;
    place.from[count++] = inside - base;
  }
  return place;
}

bool MustFail(const StackedCall& call) {
  if (!isOn) return false;
  if (CallFaults::lasts && !CallFaults::failed.empty()) {
    // The system asks a window for the same area until it paints, and the test waits for the last message.
    return functions[call.function].group->name == functions[CallFaults::failed.front().function].group->name &&
           functions[call.function].name != "BeginPaint";
  }
  if (CallFaults::failed.size() >= CallFaults::most) return false;
  if (wait > 0) return --wait, false;
  const CallFaults::Place place = PlaceOf(call);
  const bool isFirst = place == CallFaults::first;
  if (CallFaults::first && isFirst != CallFaults::failed.empty()) return false;
  if (place.from[0] == 0 || (!failedEver.insert(place).second && !isFirst)) return false;
  CallFaults::failed.push_back(place);
  wait = CallFaults::gap;
  return true;
}

struct Counted {
  static void* Taken(void* block) {
    CallFaults::blocks += block != nullptr;
    return block;
  }
  static void* Malloc(size_t bytes) { return Taken(std::malloc(bytes)); }
  static void* Calloc(size_t count, size_t bytes) { return Taken(std::calloc(count, bytes)); }
  static void* Realloc(void* former, size_t bytes) {
    void* const block = std::realloc(former, bytes);
    CallFaults::blocks += (block != nullptr) - (former != nullptr && (block != nullptr || bytes == 0));
    return block;
  }
  static void Free(void* block) {
    CallFaults::blocks -= block != nullptr;
    std::free(block);
  }
  static void* WINAPI Reserve(void* at, SIZE_T bytes, DWORD type, DWORD protection) {
    void* const block = VirtualAlloc(at, bytes, type, protection);
    return at ? block : Taken(block);
  }
  static BOOL WINAPI Release(void* at, SIZE_T bytes, DWORD type) {
    const BOOL done = VirtualFree(at, bytes, type);
    CallFaults::blocks -= done && type == MEM_RELEASE;
    return done;
  }
};

// Stands in the place of the system's dialog, which no test waits for.
BOOL WINAPI NamedFile(OPENFILENAMEA* question) {
  if (CallFaults::fileName.size() >= question->nMaxFile) return FALSE;
  std::strcpy(question->lpstrFile, CallFaults::fileName.c_str());
  return TRUE;
}

HWND WINAPI MadeWindow(DWORD extendedStyle, LPCSTR kind, LPCSTR title, DWORD style, int left, int top, int width,
                       int height, HWND parent, HMENU menu, HINSTANCE instance, void* data) {
  const bool isWanted = !std::exchange(isRefused, false);
  const HWND window =
      CreateWindowExA(extendedStyle, kind, title, style, left, top, width, height, parent, menu, instance, data);
  if (isWanted || !window) return window;
  DestroyWindow(window);
  return nullptr;
}

// The end of a program that throws where it must not.
void Abort() {
  __builtin_trap();
}

ULONG_PTR CounterOf(const char* name) {
  const std::pair<const char*, ULONG_PTR> kCounters[] = {{"malloc", AddressOf(&Counted::Malloc)},
                                                         {"calloc", AddressOf(&Counted::Calloc)},
                                                         {"realloc", AddressOf(&Counted::Realloc)},
                                                         {"VirtualAlloc", AddressOf(&Counted::Reserve)},
                                                         {"free", AddressOf(&Counted::Free)},
                                                         {"VirtualFree", AddressOf(&Counted::Release)},
                                                         {"abort", AddressOf(&Abort)},
                                                         {"CreateWindowExA", AddressOf(&MadeWindow)},
                                                         {"GetSaveFileNameA", AddressOf(&NamedFile)},
                                                         {"GetOpenFileNameA", AddressOf(&NamedFile)}};
  for (const auto& [counted, counter] : kCounters) {
    if (std::strcmp(counted, name) == 0) return counter;
  }
  return 0;
}

}  // namespace

extern "C" void DecideCall(StackedCall& call) {
  const Function& function = functions[call.function];
  const bool fails = MustFail(call);
  isRefused = fails && CallFaults::isMadeAtFirst && function.name == "CreateWindowExA";
  if (fails && !isRefused) {
    call.function = reinterpret_cast<ULONG_PTR>(&stubs[call.function].load);
    errno = static_cast<int>(function.group->error);
    SetLastError(function.group->error);
  } else {
    call.function = function.real;
  }
}

extern "C" void EnterCall();
asm(R"(
.text
.globl _EnterCall
_EnterCall:
  pushal
  leal 32(%esp), %eax
  pushl %eax
  call _DecideCall
  addl $4, %esp
  popal
  ret
)");

namespace {

void ReadGroups() {
  for (const Group& group : kGroups) {
    std::istringstream words(group.functions);
    for (std::string word; words >> word;) {
      if (word[0] < 'A') {
        functions.back().words = std::stoul(word);
      } else {
        functions.push_back({&group, word, 0, 0});
      }
    }
  }
  const size_t bytes = sizeof(Stub) * functions.size();
  stubs = static_cast<Stub*>(VirtualAlloc(nullptr, bytes, MEM_COMMIT, PAGE_EXECUTE_READWRITE));
}

ULONG_PTR StubFor(const char* name, ULONG_PTR now) {
  const ULONG_PTR counter = CounterOf(name);
  for (uint32_t i = 0; i < functions.size(); ++i) {
    Function& function = functions[i];
    if (function.name != name) continue;
    function.real = counter ? counter : now;
    Stub& stub = stubs[i];
    stub = Stub();
    stub.function = i;
    stub.distance = AddressOf(&EnterCall) - reinterpret_cast<ULONG_PTR>(&stub.load);
    stub.result = function.group->result;
    stub.bytes = static_cast<uint16_t>(function.words * 4);
    return reinterpret_cast<ULONG_PTR>(&stub);
  }
  return counter;
}

}  // namespace

bool CallFaults::Install(const char* name) {
  const HMODULE module = GetModuleHandleA(name);
  if (!module) return false;
  if (!stubs) ReadGroups();
  base = reinterpret_cast<ULONG_PTR>(module);
  MEMORY_BASIC_INFORMATION part = {};
  for (size = 0; VirtualQuery(reinterpret_cast<void*>(base + size), &part, sizeof part); size += part.RegionSize) {
    if (part.AllocationBase != module) break;
  }
  return stubs && ReplaceImports(module, &StubFor) > 0;
}

void CallFaults::Begin() {
  failed.clear();
  wait = 0;
  isOn = true;
}

std::vector<CallFaults::Place> CallFaults::End() {
  isOn = false;
  return failed;
}

void CallFaults::Forget(const std::vector<Place>& places) {
  for (const Place& place : places) failedEver.erase(place);
}

std::string CallFaults::KindOf(const Place& place) {
  return functions[place.function].group->name + (" " + functions[place.function].name);
}

std::string CallFaults::TextOf(const Place& place) {
  std::string text = functions[place.function].name;
  for (uint32_t i = 0; i < callers && place.from[i] != 0; ++i) {
    char offset[16];
    std::snprintf(offset, sizeof offset, " %x", place.from[i]);
    text += offset;
  }
  return text;
}

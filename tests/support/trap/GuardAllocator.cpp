// Linked into a program or a module, this is its heap. Each block is in pages of its own and ends, to the byte, where
// an inaccessible page begins; an object keeps its alignment, of which its size is a multiple. Freed pages are
// inaccessible until the whole arena was gone through. New memory and what lies in front of it are filled, the latter
// is checked.
//
// A block costs the system two mappings, and Linux gives a process 65530. Of the blocks beyond kAllGuarded that live at
// a time one in 16 is guarded, beyond kMostGuarded none: those are the C library's, which frees them and what else it
// gave out. How many they were is told at the end.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

extern "C" IMAGE_DOS_HEADER __ImageBase;  // where this file is loaded
namespace {

constexpr size_t kPage = 4096;
constexpr size_t kPages = 256U << 20 >> 12;  // a program and its modules share 2 GB
constexpr uint32_t kAllGuarded = 18000, kMostGuarded = 22000;
constexpr uint8_t kFront = 0xFB, kNew = 0xCD;

#define FROM(library, function) \
  reinterpret_cast<decltype(&function)>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), #function)))
#define SYSTEM(function) FROM("kernel32.dll", function)
#define RUNTIME(function) FROM("msvcrt.dll", function)

SRWLOCK lock = SRWLOCK_INIT;
uint8_t* base = nullptr;
size_t next = 0;  // page where the search goes on
uint32_t living = 0, turn = 0, all = 0, unguarded = 0;
uint32_t sizes[kPages] = {};  // of the block that begins in a page; 0: none does

struct Locked {
  Locked() { AcquireSRWLockExclusive(&lock); }
  ~Locked() { ReleaseSRWLockExclusive(&lock); }
};

size_t DataPages(size_t size) {
  return (size + kPage - 1) / kPage;
}

size_t PageOf(const void* block) {
  return (reinterpret_cast<uintptr_t>(block) - reinterpret_cast<uintptr_t>(base)) / kPage;
}

bool IsGuarded(const void* block) {
  return base && PageOf(block) < kPages;
}

size_t FindFree(size_t pages) {
  size_t run = 0;
  for (size_t seen = 0, at = next; seen < kPages + pages;) {
    if (at == kPages) at = run = 0;
    const size_t step = sizes[at] ? DataPages(sizes[at]) + 1 : 1;
    run = sizes[at] ? 0 : run + 1;
    at += step, seen += step;
    if (run == pages) return at - pages;
  }
  return kPages;
}

// Null when there is no room, or when it is not this block's turn.
void* Take(size_t size) {
  const Locked locked;
  ++all;
  const size_t bytes = DataPages(size) * kPage;
  const bool isMine = living < kAllGuarded || (living < kMostGuarded && ++turn % 16 == 0);
  if (!base) base = static_cast<uint8_t*>(SYSTEM(VirtualAlloc)(nullptr, kPages * kPage, MEM_RESERVE, PAGE_NOACCESS));
  if (!base) __builtin_trap();
  const size_t first = isMine && size < kPages * kPage ? FindFree(DataPages(size) + 1) : kPages;
  uint8_t* const begin = base + first * kPage;
  if (first == kPages || !SYSTEM(VirtualAlloc)(begin, bytes, MEM_COMMIT, PAGE_READWRITE)) {
    ++unguarded;
    return nullptr;
  }
  ++living;
  sizes[first] = size;
  next = first + DataPages(size) + 1;
  std::memset(begin, kFront, bytes - size);
  return std::memset(begin + bytes - size, kNew, size);
}

void Give(void* block) {
  const Locked locked;
  const size_t first = PageOf(block), size = sizes[first], bytes = DataPages(size) * kPage;
  uint8_t* const begin = base + first * kPage;
  if (size == 0 || begin + bytes - size != block) __builtin_trap();  // freed twice, or never taken
  if (std::any_of(begin, begin + bytes - size, [](uint8_t byte) { return byte != kFront; })) __builtin_trap();
  SYSTEM(VirtualFree)(begin, bytes, MEM_DECOMMIT);
  sizes[first] = 0;
  --living;
}

void* WINAPI Reserve(void* address, SIZE_T size, DWORD kind, DWORD protection) {
  void* const block = !address && (kind & MEM_COMMIT) && size ? Take(size) : nullptr;
  return block ? std::memset(block, 0, size) : SYSTEM(VirtualAlloc)(address, size, kind, protection);
}

BOOL WINAPI Release(void* address, SIZE_T size, DWORD kind) {
  return IsGuarded(address) ? (Give(address), TRUE) : SYSTEM(VirtualFree)(address, size, kind);
}

[[gnu::destructor]] void Tell() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(reinterpret_cast<HMODULE>(&__ImageBase), path, sizeof path);
  std::fprintf(stderr, "guard: %u of %u blocks not guarded, %s\n", unguarded, all, path);
}

}  // namespace

// In place of the library's functions, for everything that is linked statically.
extern "C" {
void* malloc(size_t size) {
  void* const block = Take(std::max<size_t>(size, 1));
  return block ? block : RUNTIME(malloc)(size);
}

void* calloc(size_t count, size_t size) {
  void* const block = count && size && count <= SIZE_MAX / size ? Take(count * size) : nullptr;
  return block ? std::memset(block, 0, count * size) : RUNTIME(calloc)(count, size);
}

void free(void* block) {
  IsGuarded(block) ? Give(block) : RUNTIME(free)(block);
}

void* realloc(void* block, size_t size) {
  if (!block) return malloc(size);
  if (size == 0) return free(block), nullptr;
  void* const moved = malloc(size);
  if (!moved) return nullptr;
  std::memcpy(moved, block, std::min(size, IsGuarded(block) ? sizes[PageOf(block)] : RUNTIME(_msize)(block)));
  free(block);
  return moved;
}

// The entry point of a module, which may be loaded and unloaded many times: the arena goes with it.
[[gnu::weak]] BOOL WINAPI DllMainCRTStartup(HANDLE module, DWORD reason, void* reserved);
BOOL WINAPI GuardedEntry(HANDLE module, DWORD reason, void* reserved) {
  const BOOL result = DllMainCRTStartup(module, reason, reserved);
  if (reason == DLL_PROCESS_DETACH) SYSTEM(VirtualFree)(base, 0, MEM_RELEASE);
  return result;
}

// The entries of the import table: pages that somebody takes for himself come from the arena, too.
decltype(&Reserve) importOfVirtualAlloc asm("__imp__VirtualAlloc@16") = &Reserve;
decltype(&Release) importOfVirtualFree asm("__imp__VirtualFree@12") = &Release;
}

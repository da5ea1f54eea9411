// Linked into a program or a module, this is its heap. Each block is in pages of its own and ends where an inaccessible
// page begins, to the byte: a block of an object still has the object's alignment, because its size is a multiple of
// it. Freed pages are inaccessible, too, and are taken again when the whole arena was gone through. New memory is
// filled with a pattern; so are the bytes in front of a block, which are looked at when it is freed.
//
// A pair of pages costs the system two mappings, and Linux gives a process 65530 of them. Of blocks beyond kAllGuarded
// that live at a time only one in 16 is guarded, beyond kMostGuarded none; the rest comes from the C library, and how
// many they were is told at the end. So are blocks that the C library gives out itself freed there.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <mutex>

namespace {

constexpr size_t kPage = 4096;
constexpr size_t kPages = 256U << 20 >> 12;  // a program and its modules share 2 GB
constexpr uint32_t kAllGuarded = 18000, kMostGuarded = 22000;
constexpr uint8_t kFront = 0xFB, kNew = 0xCD;

template <class Function>
Function* Of(const char* library, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), name)));
}
#define SYSTEM(function) Of<decltype(function)>("kernel32.dll", #function)
#define RUNTIME(function) Of<decltype(function)>("msvcrt.dll", #function)

struct Lock {
  void lock() { AcquireSRWLockExclusive(&srw); }
  void unlock() { ReleaseSRWLockExclusive(&srw); }
  SRWLOCK srw = SRWLOCK_INIT;
};

class Arena {
 public:
  constexpr Arena() = default;
  ~Arena();                 // tells its figures; the runtime goes on to use it
  void* Take(size_t size);  // null when there is no room, or when it is not this block's turn
  void Give(void* block);
  void Leave() const;
  [[nodiscard]] bool Has(const void* block) const {
    return base_ && static_cast<size_t>(At(block) - base_) < kPages * kPage;
  }
  [[nodiscard]] size_t SizeOf(const void* block) const { return sizes_[PageOf(block)]; }

 private:
  static const uint8_t* At(const void* block) { return static_cast<const uint8_t*>(block); }
  static size_t DataPages(size_t size) { return (size + kPage - 1) / kPage; }
  [[nodiscard]] size_t PageOf(const void* block) const { return static_cast<size_t>(At(block) - base_) / kPage; }
  size_t FindFree(size_t pages);

  Lock lock_;
  uint8_t* base_ = nullptr;
  size_t next_ = 0;  // page where the search goes on
  uint32_t living_ = 0, turn_ = 0, all_ = 0, unguarded_ = 0;
  uint32_t sizes_[kPages] = {};  // of the block that begins in a page; 0: none does
};

// The first to be constructed, so the last to go.
[[gnu::init_priority(101)]] constinit Arena arena;

Arena::~Arena() {
  char path[MAX_PATH] = "";
  HMODULE module = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCSTR>(this), &module);
  GetModuleFileNameA(module, path, sizeof path);
  std::fprintf(stderr, "guard: %u of %u blocks not guarded, %s\n", unguarded_, all_, path);
}

void Arena::Leave() const {
  if (base_) SYSTEM(VirtualFree)(base_, 0, MEM_RELEASE);
}

size_t Arena::FindFree(size_t pages) {
  size_t run = 0;
  for (size_t seen = 0, at = next_; seen < kPages + pages;) {
    if (at == kPages) at = run = 0;
    const size_t step = sizes_[at] ? DataPages(sizes_[at]) + 1 : 1;
    run = sizes_[at] ? 0 : run + 1;
    at += step, seen += step;
    if (run == pages) return at - pages;
  }
  return kPages;
}

void* Arena::Take(size_t size) {
  const std::lock_guard guard(lock_);
  ++all_;
  const size_t bytes = DataPages(size) * kPage;
  const bool isMine = living_ < kAllGuarded || (living_ < kMostGuarded && ++turn_ % 16 == 0);
  if (!base_) base_ = static_cast<uint8_t*>(SYSTEM(VirtualAlloc)(nullptr, kPages * kPage, MEM_RESERVE, PAGE_NOACCESS));
  if (!base_) __builtin_trap();
  const size_t first = isMine && size < kPages * kPage ? FindFree(DataPages(size) + 1) : kPages;
  uint8_t* const begin = base_ + first * kPage;
  if (first == kPages || !SYSTEM(VirtualAlloc)(begin, bytes, MEM_COMMIT, PAGE_READWRITE)) {
    ++unguarded_;
    return nullptr;
  }
  ++living_;
  sizes_[first] = size;
  next_ = first + DataPages(size) + 1;
  uint8_t* const block = begin + bytes - size;
  std::memset(begin, kFront, bytes - size);
  std::memset(block, kNew, size);
  return block;
}

void Arena::Give(void* block) {
  const std::lock_guard guard(lock_);
  const size_t first = PageOf(block), size = sizes_[first], bytes = DataPages(size) * kPage;
  uint8_t* const begin = base_ + first * kPage;
  if (size == 0 || begin + bytes - size != block) __builtin_trap();  // freed twice, or never taken
  if (std::any_of(begin, begin + bytes - size, [](uint8_t byte) { return byte != kFront; })) __builtin_trap();
  SYSTEM(VirtualFree)(begin, bytes, MEM_DECOMMIT);
  sizes_[first] = 0;
  --living_;
}

void* WINAPI Reserve(void* address, SIZE_T size, DWORD kind, DWORD protection) {
  void* const block = !address && (kind & MEM_COMMIT) && size ? arena.Take(size) : nullptr;
  return block ? std::memset(block, 0, size) : SYSTEM(VirtualAlloc)(address, size, kind, protection);
}

BOOL WINAPI Release(void* address, SIZE_T size, DWORD kind) {
  if (!arena.Has(address)) return SYSTEM(VirtualFree)(address, size, kind);
  arena.Give(address);
  return TRUE;
}

}  // namespace

// In place of the library's functions, for everything that is linked statically.
extern "C" {

void* malloc(size_t size) {
  void* const block = arena.Take(std::max<size_t>(size, 1));
  return block ? block : RUNTIME(malloc)(size);
}

void* calloc(size_t count, size_t size) {
  void* const block = count && size && count <= SIZE_MAX / size ? arena.Take(count * size) : nullptr;
  return block ? std::memset(block, 0, count * size) : RUNTIME(calloc)(count, size);
}

void free(void* block) {
  arena.Has(block) ? arena.Give(block) : RUNTIME(free)(block);
}

void* realloc(void* block, size_t size) {
  if (!block) return malloc(size);
  if (size == 0) return free(block), nullptr;
  void* const moved = malloc(size);
  if (!moved) return nullptr;
  std::memcpy(moved, block, std::min(size, arena.Has(block) ? arena.SizeOf(block) : RUNTIME(_msize)(block)));
  free(block);
  return moved;
}

// The entry point of a module, which may be loaded and unloaded many times: the arena goes with it.
[[gnu::weak]] BOOL WINAPI DllMainCRTStartup(HANDLE module, DWORD reason, void* reserved);
BOOL WINAPI GuardedEntry(HANDLE module, DWORD reason, void* reserved) {
  const BOOL result = DllMainCRTStartup(module, reason, reserved);
  if (reason == DLL_PROCESS_DETACH) arena.Leave();
  return result;
}

// The entries of the import table: pages that somebody takes for himself come from the arena, too.
decltype(&Reserve) importOfVirtualAlloc asm("__imp__VirtualAlloc@16") = &Reserve;
decltype(&Release) importOfVirtualFree asm("__imp__VirtualFree@12") = &Release;
}

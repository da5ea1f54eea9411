#include "tests/support/ProcessCounts.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <vector>

namespace {

// Wine does not count GDI objects by process: their table is there to be read, at a known place of the process's block.
int64_t GdiObjects() {
  if (const DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) return told;
  struct Entry {
    uint64_t object;
    uint32_t owner;
    uint16_t unique;
    uint8_t type;  // 0: free
    uint8_t flags;
    uint64_t user;
  };
  static_assert(sizeof(Entry) == 24);
  constexpr size_t kTableOffset = 0x94, kEntries = 0x4000;
  const char* block = nullptr;
  asm("movl %%fs:0x30, %0" : "=r"(block));
  const Entry* const table = *reinterpret_cast<const Entry* const*>(block + kTableOffset);
  return std::count_if(table, table + kEntries, [](const Entry& entry) { return entry.type != 0; });
}

// Numbers of freed objects are given again, so the highest of many new ones grows with those that are held.
int64_t UserObjects() {
  if (const DWORD told = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)) return told;
  std::array<HMENU, 2000> menus;
  std::ranges::generate(menus, &CreateMenu);
  int64_t highest = 0;
  for (const HMENU menu : menus) {
    highest = std::max<int64_t>(highest, LOWORD(reinterpret_cast<uintptr_t>(menu)) / 2);
    DestroyMenu(menu);
  }
  return highest;
}

// A new handle is the lowest one that is free.
int64_t Handles() {
  DWORD told = 0;
  if (GetProcessHandleCount(GetCurrentProcess(), &told) && told) return told;
  const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  CloseHandle(event);
  return static_cast<int64_t>(reinterpret_cast<uintptr_t>(event) / 4);
}

}  // namespace

ProcessCounts ProcessCounts::Now(bool withUser) {
  ProcessCounts counts = {GdiObjects(), withUser ? UserObjects() : 0, Handles(), 0, 0};
  std::array<HANDLE, 64> heaps;
  const DWORD count = std::min<DWORD>(GetProcessHeaps(heaps.size(), heaps.data()), heaps.size());
  for (DWORD i = 0; i < count; ++i) {
    HeapLock(heaps[i]);
    PROCESS_HEAP_ENTRY entry = {};
    while (HeapWalk(heaps[i], &entry)) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
      ++counts.heapBlocks;
      counts.heapBytes += entry.cbData;
    }
    HeapUnlock(heaps[i]);
  }
  return counts;
}

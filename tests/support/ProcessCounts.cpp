#include "tests/support/ProcessCounts.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <vector>

namespace {

// Wine does not count GDI objects by process: their table is there to be read, at a known place of the process's block.
int64_t GdiObjects() {
  if (const DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) return told;
  constexpr size_t kTableOffset = 0x94, kEntries = 0x4000, kEntrySize = 24, kType = 14;  // 0: free
  const char* block = nullptr;
  asm("movl %%fs:0x30, %0" : "=r"(block));
  const char* const table = *reinterpret_cast<const char* const*>(block + kTableOffset);
  int64_t count = 0;
  for (size_t i = 0; i < kEntries; ++i) count += table[i * kEntrySize + kType] != 0;
  return count;
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

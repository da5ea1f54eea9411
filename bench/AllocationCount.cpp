#include "bench/AllocationCount.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include "tests/support/ImportTable.h"

namespace {

using AllocationCount::calls;

// This program takes its memory from the same C library as the module does, so blocks may be freed by the other.
struct Counted {
  static void* Malloc(size_t bytes) { return ++calls, std::malloc(bytes); }
  static void* Calloc(size_t count, size_t bytes) { return ++calls, std::calloc(count, bytes); }
  static void* Realloc(void* block, size_t bytes) { return ++calls, std::realloc(block, bytes); }
  static LPVOID WINAPI Heap(HANDLE heap, DWORD flags, SIZE_T bytes) { return ++calls, HeapAlloc(heap, flags, bytes); }
  static HGLOBAL WINAPI Global(UINT flags, SIZE_T bytes) { return ++calls, GlobalAlloc(flags, bytes); }
  static HLOCAL WINAPI Local(UINT flags, SIZE_T bytes) { return ++calls, LocalAlloc(flags, bytes); }
  static LPVOID WINAPI Virtual(LPVOID at, SIZE_T bytes, DWORD type, DWORD protection) {
    return ++calls, VirtualAlloc(at, bytes, type, protection);
  }
};

ULONG_PTR CounterFor(const char* name, ULONG_PTR) noexcept {
  const std::pair<const char*, ULONG_PTR> kCounters[] = {
      {"malloc", AddressOf(&Counted::Malloc)},       {"calloc", AddressOf(&Counted::Calloc)},
      {"realloc", AddressOf(&Counted::Realloc)},     {"HeapAlloc", AddressOf(&Counted::Heap)},
      {"GlobalAlloc", AddressOf(&Counted::Global)},  {"LocalAlloc", AddressOf(&Counted::Local)},
      {"VirtualAlloc", AddressOf(&Counted::Virtual)}};
  for (const auto& [counted, counter] : kCounters) {
    if (std::strcmp(counted, name) == 0) return counter;
  }
  return 0;
}

}  // namespace

bool AllocationCount::Install(HMODULE module) {
  return ReplaceImports(module, &CounterFor) > 0;
}

#include "bench/AllocationCount.h"

#include <cstdlib>
#include <cstring>

#include "tests/support/ImportTable.h"

namespace {

uint32_t calls = 0;

void* CountMalloc(size_t bytes) {
  ++calls;
  return std::malloc(bytes);
}

void* CountCalloc(size_t count, size_t bytes) {
  ++calls;
  return std::calloc(count, bytes);
}

void* CountRealloc(void* block, size_t bytes) {
  ++calls;
  return std::realloc(block, bytes);
}

LPVOID WINAPI CountHeapAlloc(HANDLE heap, DWORD flags, SIZE_T bytes) {
  ++calls;
  return HeapAlloc(heap, flags, bytes);
}

HGLOBAL WINAPI CountGlobalAlloc(UINT flags, SIZE_T bytes) {
  ++calls;
  return GlobalAlloc(flags, bytes);
}

HLOCAL WINAPI CountLocalAlloc(UINT flags, SIZE_T bytes) {
  ++calls;
  return LocalAlloc(flags, bytes);
}

LPVOID WINAPI CountVirtualAlloc(LPVOID address, SIZE_T bytes, DWORD type, DWORD protection) {
  ++calls;
  return VirtualAlloc(address, bytes, type, protection);
}

// This program takes its memory from the same C library as the module does, so blocks may be freed by the other.
ULONG_PTR CounterFor(const char* name, ULONG_PTR) noexcept {
  const struct {
    const char* name;
    ULONG_PTR counter;
  } kCounters[] = {{"malloc", AddressOf(&CountMalloc)},
                   {"calloc", AddressOf(&CountCalloc)},
                   {"realloc", AddressOf(&CountRealloc)},
                   {"HeapAlloc", AddressOf(&CountHeapAlloc)},
                   {"GlobalAlloc", AddressOf(&CountGlobalAlloc)},
                   {"LocalAlloc", AddressOf(&CountLocalAlloc)},
                   {"VirtualAlloc", AddressOf(&CountVirtualAlloc)}};
  for (const auto& each : kCounters) {
    if (strcmp(each.name, name) == 0) return each.counter;
  }
  return 0;
}

}  // namespace

AllocationCount::AllocationCount(HMODULE module) : replaced_(ReplaceImports(module, &CounterFor)) {}

uint32_t AllocationCount::Calls() const noexcept {
  return calls;
}

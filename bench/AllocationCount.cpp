#include "bench/AllocationCount.h"

#include <cstdlib>
#include <cstring>

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

template <class Function>
ULONG_PTR AddressOf(Function* function) noexcept {
  return reinterpret_cast<ULONG_PTR>(function);
}

// This program takes its memory from the same C library as the module does, so blocks may be freed by the other.
ULONG_PTR CounterFor(const char* name) noexcept {
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

void Put(ULONG_PTR& slot, ULONG_PTR function) {
  DWORD before = 0;
  if (!VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &before)) return;
  slot = function;
  VirtualProtect(&slot, sizeof slot, before, &before);
}

}  // namespace

AllocationCount::AllocationCount(HMODULE module) {
  const auto base = reinterpret_cast<ULONG_PTR>(module);
  const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + static_cast<ULONG_PTR>(dos.e_lfanew));
  const DWORD imports = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports); from->Name != 0; ++from) {
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
    auto* slot = reinterpret_cast<IMAGE_THUNK_DATA*>(base + from->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      Replace(slot->u1.Function, reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData)->Name);
    }
  }
}

AllocationCount::~AllocationCount() {
  for (const Replaced& each : replaced_) Put(*each.slot, each.function);
}

void AllocationCount::Replace(ULONG_PTR& slot, const char* name) {
  const ULONG_PTR counter = CounterFor(name);
  if (counter == 0) return;
  replaced_.push_back({&slot, slot});
  Put(slot, counter);
}

uint32_t AllocationCount::Calls() const noexcept {
  return calls;
}

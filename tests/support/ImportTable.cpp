#include "tests/support/ImportTable.h"

namespace {

void Put(ULONG_PTR& slot, ULONG_PTR function) {
  DWORD before = 0;
  if (!VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &before)) return;
  slot = function;
  VirtualProtect(&slot, sizeof slot, before, &before);
}

}  // namespace

size_t ReplaceImports(HMODULE module, const std::function<ULONG_PTR(const char* name, ULONG_PTR now)>& replacement) {
  size_t replaced = 0;
  const auto base = reinterpret_cast<ULONG_PTR>(module);
  const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + static_cast<ULONG_PTR>(dos.e_lfanew));
  const DWORD imports = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports); from->Name != 0; ++from) {
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
    auto* slot = reinterpret_cast<IMAGE_THUNK_DATA*>(base + from->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      const auto* known = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      const ULONG_PTR other = replacement(known->Name, slot->u1.Function);
      if (other == 0) continue;
      Put(slot->u1.Function, other);
      ++replaced;
    }
  }
  return replaced;
}

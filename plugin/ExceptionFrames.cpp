#include "plugin/ExceptionFrames.h"

#include <windows.h>

#include <cstdint>

extern "C" {

extern IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier): where this file is loaded

struct UnwindBases {
  void *text, *data, *function;
};
// The unwinder's own. A frame description or null; and a table of them, with room for the list's entry.
const void* _Unwind_Find_FDE(void* code, UnwindBases* bases);    // NOLINT(bugprone-reserved-identifier)
void __register_frame_info(const void* table, void* listEntry);  // NOLINT(bugprone-reserved-identifier)

void* __deregister_frame_info(const void* table);  // NOLINT(bugprone-reserved-identifier)

}  // extern "C"

namespace {

constexpr char kSharedRuntime[] = "libgcc_s_dw2-1.dll";

using Find = const void* (*)(void* code, UnwindBases* bases);

uintptr_t listEntry[16];           // more than the unwinder's record; stays for as long as the module
const void* registered = nullptr;  // the table, when it was done here

// The begin of the section that an address in this file lies in. Sections have no names to go by: long ones are cut, or
// stand where the system does not load them.
const void* SectionOf(const void* address) noexcept {
  const auto* const base = reinterpret_cast<const char*>(&__ImageBase);
  const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + __ImageBase.e_lfanew);
  const IMAGE_SECTION_HEADER* const sections = IMAGE_FIRST_SECTION(headers);
  const auto offset = static_cast<uintptr_t>(static_cast<const char*>(address) - base);
  for (WORD i = 0; i < headers->FileHeader.NumberOfSections; ++i) {
    const IMAGE_SECTION_HEADER& section = sections[i];
    const uintptr_t behind = offset - section.VirtualAddress;
    if (offset >= section.VirtualAddress && behind < section.Misc.VirtualSize) return base + section.VirtualAddress;
  }
  return nullptr;
}

}  // namespace

void RegisterExceptionFrames() noexcept {
  void* const code = reinterpret_cast<void*>(&RegisterExceptionFrames);
  UnwindBases bases = {};
  if (_Unwind_Find_FDE(code, &bases)) return;
  const HMODULE shared = GetModuleHandleA(kSharedRuntime);
  if (!shared) return;
  const auto find = reinterpret_cast<Find>(reinterpret_cast<void*>(GetProcAddress(shared, "_Unwind_Find_FDE")));
  const void* const frame = find ? find(code, &bases) : nullptr;
  registered = frame ? SectionOf(frame) : nullptr;
  if (registered) __register_frame_info(registered, listEntry);
}

void ForgetExceptionFrames() noexcept {
  if (registered) __deregister_frame_info(registered);
}

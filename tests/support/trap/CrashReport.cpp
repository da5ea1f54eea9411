// Linked into a program: a fault in it, or in a module that it has loaded, ends it at once and is told on the standard
// error stream with its place and its callers, as offsets in the files. It comes before all other handlers, because the
// system swallows faults in some of its callbacks.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

void PrintPlace(const char* what, const void* address) {
  HMODULE module = nullptr;
  char path[MAX_PATH] = "\\?";
  constexpr DWORD kLook = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  GetModuleHandleExA(kLook, static_cast<LPCSTR>(address), &module);
  if (module) GetModuleFileNameA(module, path, sizeof path);
  const char* const name = std::strrchr(path, '\\');
  const uintptr_t offset = reinterpret_cast<uintptr_t>(address) - reinterpret_cast<uintptr_t>(module);
  std::fprintf(stderr, "%s %s+0x%x\n", what, name ? name + 1 : path, static_cast<unsigned>(offset));
}

// Frames of code without frame pointers are left out, or end the list.
void PrintCallers(const CONTEXT& context) {
  const void* end = nullptr;
  asm("movl %%fs:4, %0" : "=r"(end));  // NT_TIB::StackBase
  const auto* below = reinterpret_cast<const uintptr_t*>(context.Esp);
  const auto* frame = reinterpret_cast<const uintptr_t*>(context.Ebp);
  for (; frame >= below && frame + 1 < end; frame = reinterpret_cast<const uintptr_t*>(*frame)) {
    PrintPlace("  from", reinterpret_cast<const void*>(frame[1]));
    below = frame + 1;
  }
}

LONG WINAPI Report(EXCEPTION_POINTERS* what) {
  const EXCEPTION_RECORD& record = *what->ExceptionRecord;
  constexpr DWORD kFaults[] = {EXCEPTION_ACCESS_VIOLATION,   EXCEPTION_ILLEGAL_INSTRUCTION, EXCEPTION_STACK_OVERFLOW,
                               EXCEPTION_INT_DIVIDE_BY_ZERO, EXCEPTION_PRIV_INSTRUCTION,    EXCEPTION_IN_PAGE_ERROR};
  if (std::ranges::count(kFaults, record.ExceptionCode) == 0) return EXCEPTION_CONTINUE_SEARCH;
  std::fprintf(stderr, "crash 0x%lx", record.ExceptionCode);
  if (record.NumberParameters > 1) std::fprintf(stderr, " touching 0x%lx", record.ExceptionInformation[1]);
  PrintPlace(" at", record.ExceptionAddress);
  PrintCallers(*what->ContextRecord);
  std::fflush(nullptr);
  TerminateProcess(GetCurrentProcess(), 3);
  return EXCEPTION_CONTINUE_SEARCH;
}

[[maybe_unused]] const PVOID kInstalled = AddVectoredExceptionHandler(1, &Report);

}  // namespace

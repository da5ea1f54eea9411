#include "tests/support/ModuleClock.h"

#include <string_view>

#include "tests/support/ImportTable.h"

namespace {

void WINAPI Utc(SYSTEMTIME* time) {
  *time = ModuleClock::Calendar(ModuleClock::utc);
}
void WINAPI Local(SYSTEMTIME* time) {
  *time = ModuleClock::Calendar(ModuleClock::utc + ModuleClock::localOffset);
}

}  // namespace

uint64_t ModuleClock::Ticks(std::chrono::sys_seconds time) {
  constexpr std::chrono::sys_days kFirstDay = std::chrono::year(1601) / 1 / 1;
  return static_cast<uint64_t>((time - kFirstDay) / std::chrono::seconds(1)) * 10'000'000;
}

SYSTEMTIME ModuleClock::Calendar(std::chrono::sys_seconds time) {
  const FILETIME ticks = {static_cast<DWORD>(Ticks(time)), static_cast<DWORD>(Ticks(time) >> 32)};
  SYSTEMTIME calendar = {};
  FileTimeToSystemTime(&ticks, &calendar);
  return calendar;
}

bool ModuleClock::Replace(const char* name) {
  const HMODULE module = GetModuleHandleA(name);
  const auto replacement = [](std::string_view function, ULONG_PTR) -> ULONG_PTR {
    return function == "GetSystemTime" ? AddressOf(&Utc) : function == "GetLocalTime" ? AddressOf(&Local) : 0;
  };
  return module && ReplaceImports(module, replacement) == 2;
}

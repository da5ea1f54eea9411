#include "tests/support/ModuleClock.h"

#include <algorithm>

namespace {

void WINAPI Utc(SYSTEMTIME* time) {
  *time = ModuleClock::Calendar(ModuleClock::utc);
}
void WINAPI Local(SYSTEMTIME* time) {
  *time = ModuleClock::Calendar(ModuleClock::utc + ModuleClock::localOffset);
}

// From now on the loaded module calls `replacement` instead of what it imported under this name.
bool Redirect(const char* module, const char* function, void(WINAPI* replacement)(SYSTEMTIME*)) {
  const auto base = reinterpret_cast<uintptr_t>(GetModuleHandleA(module));
  if (base == 0) return false;
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + static_cast<uintptr_t>(dos->e_lfanew));
  const IMAGE_DATA_DIRECTORY& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IAT];
  const auto begin = reinterpret_cast<uintptr_t*>(base + table.VirtualAddress);
  const auto end = begin + table.Size / sizeof(uintptr_t);
  const auto real = reinterpret_cast<uintptr_t>(GetProcAddress(GetModuleHandleA("kernel32.dll"), function));
  const auto place = std::find(begin, end, real);
  DWORD before = 0;
  if (place == end || !VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before)) return false;
  *place = reinterpret_cast<uintptr_t>(replacement);
  return true;
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

bool ModuleClock::Replace(const char* module) {
  return Redirect(module, "GetSystemTime", &Utc) && Redirect(module, "GetLocalTime", &Local);
}

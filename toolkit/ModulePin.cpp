#include "toolkit/ModulePin.h"

#include <windows.h>

#include <utility>

#include "toolkit/TmyApplication.h"

FrameFlag ModulePin::active_;
bool ModulePin::isGoing_ = false;

namespace {

HMODULE pinned = nullptr;  // the one reference that we hold; kept, for asking for it again could fail

HMODULE Reference() noexcept {
  HMODULE module = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCSTR>(&Reference), &module);
  return module;
}

}  // namespace

ModulePin::ModulePin() noexcept : scope_(active_) {
  if (!pinned && !isGoing_) pinned = Reference();
}

void ModulePin::ReleaseUnused() noexcept {
  const bool isOnStack = TmyApplication::Exists() && TmyApplication::Get().Dispatching().IsUp();
  if (active_.IsUp() || !pinned || isOnStack) return;
  FreeLibrary(std::exchange(pinned, nullptr));
}

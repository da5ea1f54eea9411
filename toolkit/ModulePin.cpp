#include "toolkit/ModulePin.h"

#include <windows.h>

#include "toolkit/TmyApplication.h"

int ModulePin::active_ = 0;
bool ModulePin::isPinned_ = false;
bool ModulePin::isGoing_ = false;

namespace {
HMODULE OwnModule(DWORD flags) noexcept {
  HMODULE module = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | flags, reinterpret_cast<LPCSTR>(&OwnModule), &module);
  return module;
}
}  // namespace

ModulePin::ModulePin() noexcept {
  ++active_;
  if (!isPinned_ && !isGoing_) isPinned_ = OwnModule(0) != nullptr;
}

void ModulePin::ReleaseUnused() noexcept {
  const bool isOnStack = TmyApplication::Exists() && TmyApplication::Get().IsDispatching();
  if (active_ != 0 || !isPinned_ || isOnStack) return;
  isPinned_ = false;
  FreeLibrary(OwnModule(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT));
}

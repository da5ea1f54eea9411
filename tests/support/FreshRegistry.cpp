#include "tests/support/FreshRegistry.h"

FreshRegistry::FreshRegistry() : name_("Software\\Marlux3Test-" + std::to_string(GetCurrentProcessId())) {
  HKEY key = nullptr;
  if (RegCreateKeyExA(HKEY_CURRENT_USER, name_.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                      &key, nullptr) != ERROR_SUCCESS) {
    return;
  }
  RegOverridePredefKey(HKEY_CURRENT_USER, key);
  RegCloseKey(key);
}

FreshRegistry::~FreshRegistry() {
  RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
  RegDeleteTreeA(HKEY_CURRENT_USER, name_.c_str());
}

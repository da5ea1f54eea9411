// Marlux 3. The current user's registry as this process sees it: empty at first, gone at the end. The user's own is
// not touched, also not by modules that this process loads.
#pragma once

#include <windows.h>

#include <string>

class FreshRegistry {
 public:
  FreshRegistry() {
    HKEY key = nullptr;
    if (RegCreateKeyA(HKEY_CURRENT_USER, name_.c_str(), &key) != ERROR_SUCCESS) return;
    RegOverridePredefKey(HKEY_CURRENT_USER, key);
    RegCloseKey(key);
  }
  ~FreshRegistry() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeA(HKEY_CURRENT_USER, name_.c_str());
  }
  FreshRegistry(const FreshRegistry&) = delete;
  FreshRegistry& operator=(const FreshRegistry&) = delete;

 private:
  const std::string name_ = "Software\\Marlux3Test-" + std::to_string(GetCurrentProcessId());
};

// Marlux 3. The current user's registry, or another hive, as this process sees it: empty at first, gone at the end. The
// real one is not touched, also not by modules that this process loads.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <string>

class FreshRegistry {
 public:
  explicit FreshRegistry(HKEY hive = HKEY_CURRENT_USER) : hive_(hive) {
    HKEY key = nullptr;
    if (RegCreateKeyA(HKEY_CURRENT_USER, name_.c_str(), &key) != ERROR_SUCCESS) std::abort();
    if (RegOverridePredefKey(hive_, key) != ERROR_SUCCESS) std::abort();
    RegCloseKey(key);
  }
  ~FreshRegistry() {
    RegOverridePredefKey(hive_, nullptr);
    RegDeleteTreeA(HKEY_CURRENT_USER, name_.c_str());
  }
  FreshRegistry(const FreshRegistry&) = delete;
  FreshRegistry& operator=(const FreshRegistry&) = delete;

 private:
  const HKEY hive_;
  const std::string name_ = "Software\\Marlux3Test-" + std::to_string(GetCurrentProcessId()) + "-" +
                            std::to_string(reinterpret_cast<uintptr_t>(hive_));
};

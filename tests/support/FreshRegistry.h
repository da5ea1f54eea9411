// Marlux 3. The current user's registry as this process sees it: empty at first, gone at the end. The user's own is
// not touched, also not by modules that this process loads.
#pragma once

#include <windows.h>

#include <string>

class FreshRegistry {
 public:
  FreshRegistry();
  ~FreshRegistry();
  FreshRegistry(const FreshRegistry&) = delete;
  FreshRegistry& operator=(const FreshRegistry&) = delete;

 private:
  std::string name_;
};

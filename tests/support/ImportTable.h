// Marlux 3. Stands in the import table of a loaded module in place of the functions that it calls.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>

// Asks for each import by name what to call instead; 0 leaves it as it is. Returns how many were replaced.
size_t ReplaceImports(HMODULE module, const std::function<ULONG_PTR(const char* name, ULONG_PTR now)>& replacement);

template <class Function>
ULONG_PTR AddressOf(Function* function) noexcept {
  return reinterpret_cast<ULONG_PTR>(function);
}

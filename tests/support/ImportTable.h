// Marlux 3. Stands in the import table of a loaded module in place of the functions that it calls.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

struct ReplacedImport {
  ULONG_PTR* slot;
  ULONG_PTR function;  // what was there
};

// Asks for each import by name what to call instead; 0 leaves it as it is.
std::vector<ReplacedImport> ReplaceImports(
    HMODULE module, const std::function<ULONG_PTR(const char* name, ULONG_PTR now)>& replacement);
// The module must still be loaded.
void PutImportsBack(const std::vector<ReplacedImport>& replaced);

template <class Function>
ULONG_PTR AddressOf(Function* function) noexcept {
  return reinterpret_cast<ULONG_PTR>(function);
}

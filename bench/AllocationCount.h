// Marlux 3. Counts how often a module asks for memory, by standing in its import table in place of the functions that
// give some. What the system allocates inside its own functions is not the module's and not counted.
//
//   AllocationCount count(module);
//   const uint32_t before = count.Calls();
//   ...
//   printf("%u\n", count.Calls() - before);
//
// One object at a time; the module stays loaded for as long as the object lives.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "tests/support/ImportTable.h"

class AllocationCount {
 public:
  explicit AllocationCount(HMODULE module);
  ~AllocationCount();
  AllocationCount(const AllocationCount&) = delete;
  AllocationCount& operator=(const AllocationCount&) = delete;

  [[nodiscard]] uint32_t Calls() const noexcept;
  // False when the module imports none of the functions: then nothing would be counted.
  [[nodiscard]] bool Counts() const noexcept { return !replaced_.empty(); }

 private:
  std::vector<ReplacedImport> replaced_;
};

// Marlux 3. Counts how often a module asks for memory, by standing in its import table in place of the functions that
// give some. What the system allocates inside its own functions is not the module's and not counted.
//
//   AllocationCount count(module);
//   const uint32_t before = count.Calls();
//   ...
//   printf("%u\n", count.Calls() - before);
//
// One object for each load of the module: what it puts there stays as long as the module does.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

class AllocationCount {
 public:
  explicit AllocationCount(HMODULE module);

  [[nodiscard]] uint32_t Calls() const noexcept;
  // False when the module imports none of the functions: then nothing would be counted.
  [[nodiscard]] bool Counts() const noexcept { return replaced_ > 0; }

 private:
  size_t replaced_;  // imports
};

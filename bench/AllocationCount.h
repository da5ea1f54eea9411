// Marlux 3. Counts how often a module asks for memory, by standing in its import table in place of the functions that
// give some. What the system allocates inside its own functions is not the module's and not counted.
//
//   if (!AllocationCount::Install(module)) return;
//   const uint32_t before = AllocationCount::calls;
//   ...
//   printf("%u\n", AllocationCount::calls - before);
#pragma once

#include <windows.h>

#include <cstdint>

namespace AllocationCount {

inline uint32_t calls = 0;
// Lasts as long as the module stays loaded. False when it imports none of the functions: nothing would be counted.
[[nodiscard]] bool Install(HMODULE module);

}  // namespace AllocationCount

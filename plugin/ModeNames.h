// Marlux 3. The host's mode numbers and what they are called.
#pragma once

#include "foundation/Compiler.h"

inline constexpr int32_t kModeNameCount = 21;  // numbers 0 to 20

// A literal; "" for a number that has no name.
[[nodiscard]] const char* ModeName(int32_t number) noexcept;

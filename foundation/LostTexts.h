// Marlux 3. How often a text of this process stayed empty or unchanged because memory was short. Texts do not tell that
// one by one; whoever stores a work of many for the user compares the number before and after.
#pragma once

#include <cstdint>

[[nodiscard]] uint32_t LostTexts() noexcept;

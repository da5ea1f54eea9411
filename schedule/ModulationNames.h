// Marlux 3. What the modulation characters of the HFCC schedule stand for.
#pragma once

// Null for a character without a name.
[[nodiscard]] const char* ModulationName(char modulation) noexcept;

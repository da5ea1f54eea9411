// Marlux 3. Frequencies as people write them: kHz with up to three decimals, held as whole Hz.
//
//   ParseFrequency("9420.5")   gives 9420500
//   ParseFrequency("6.005M")   gives 6005000
//   FormatKhz(9420500)         gives "9420.5"
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "foundation/TmyString.h"

// Hz, 0 to the largest 64-bit number. kHz without a unit; "k" and "M", also "kHz" and "MHz" in any case; point or comma
// as decimal mark. Nothing for any other text, for parts of one Hz and for numbers that are too large.
[[nodiscard]] std::optional<int64_t> ParseFrequency(std::string_view text) noexcept;
// No more decimals than needed.
[[nodiscard]] TmyString FormatKhz(int64_t hz);
[[nodiscard]] TmyString FormatUnsignedKhz(uint64_t hz);

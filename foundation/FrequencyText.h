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

// Hz, 0 to the largest 64-bit number. kHz without a unit; "k" and "M", also "kHz", "MHz" and "Hz" in any case; point or
// comma as decimal mark. Nothing for any other text, for parts of one Hz and for numbers that are too large.
[[nodiscard]] std::optional<int64_t> ParseFrequency(std::string_view text) noexcept;
// The first one in a text around it, as ParseFrequency reads it, with its unit where that is a word of its own: "9420"
// of "9420 AM", "6.005mhz" of "on 6.005 MHz". Digits may stand in groups of three. Empty when there is none.
[[nodiscard]] TmyString FindFrequency(std::string_view text);
// No more decimals than needed.
[[nodiscard]] TmyString FormatKhz(int64_t hz);
[[nodiscard]] TmyString FormatUnsignedKhz(uint64_t hz);

// Marlux 3. CIRAF zones: the numbered areas of the world that a broadcast is meant for.
#pragma once

#include <array>
#include <string_view>

#include "foundation/Compiler.h"

// Zones from 1 to 100; the map uses fewer.
class ZoneSet {
 public:
  static constexpr uint32_t kHighest = 100;

  constexpr void Add(uint32_t zone) noexcept {
    if (zone >= 1 && zone <= kHighest) bits_[zone / 32] |= 1U << zone % 32;
  }
  [[nodiscard]] constexpr bool Holds(uint32_t zone) const noexcept {
    return zone <= kHighest && (bits_[zone / 32] >> zone % 32 & 1) != 0;
  }
  friend bool operator==(const ZoneSet& left, const ZoneSet& right) noexcept = default;

 private:
  std::array<uint32_t, kHighest / 32 + 1> bits_{};
};

// zones := item { "," item } ;  item := number [ "-" number ]
// "27-31,37" are six zones. A range from a higher to a lower number is none; other characters are skipped, numbers
// beyond the highest zone left out.
[[nodiscard]] ZoneSet ParseCiraf(std::string_view text) noexcept;

// Marlux 3. Which item a key leads to in a list: the keyboard of list boxes and of closed combo boxes. And what the
// flags of any key say.
#pragma once

#include <windows.h>

#include <cstdint>

namespace ListKeys {

constexpr int32_t kNotAListKey = -2;

[[nodiscard]] constexpr bool IsWithAlt(LPARAM keyFlags) noexcept {
  return (static_cast<uint32_t>(keyFlags) & 0x20000000u) != 0;  // of the message, not of the keyboard at this moment
}

[[nodiscard]] constexpr bool IsRepeated(LPARAM keyFlags) noexcept {
  return (static_cast<uint32_t>(keyFlags) & 0x40000000u) != 0;  // the key was down already
}

// From `selection` (-1: none) in a list of `count` items, `page` of them in view. -1 in an empty list.
[[nodiscard]] int32_t Target(uint32_t key, LPARAM keyFlags, int32_t selection, int32_t count, int32_t page) noexcept;

}  // namespace ListKeys

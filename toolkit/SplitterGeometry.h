// Marlux 3. How a splitter divides a length among the two things at its sides: functions of numbers, without a window.
#pragma once

namespace SplitterGeometry {

enum class Keeps { kFirst, kSecond };  // which side's length stays as it is when the whole changes

struct Space {
  int total = 0;      // pixels, the bar included
  int thickness = 0;  // of the bar
  int firstLeast = 0;
  int secondLeast = 0;  // when there is not room for both, the second side gets what is left of its least
};

struct Parts {
  int first = 0;   // where the bar begins, too
  int second = 0;  // first + thickness + second = total, as long as the bar fits at all
};

// The lengths with which the kept side comes as near to `wanted` as the least lengths allow.
[[nodiscard]] Parts Divided(const Space& space, Keeps keeps, int wanted) noexcept;

}  // namespace SplitterGeometry

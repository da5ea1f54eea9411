#include "toolkit/SplitterGeometry.h"

#include <algorithm>

SplitterGeometry::Parts SplitterGeometry::Divided(const Space& space, Keeps keeps, int wanted) noexcept {
  const int both = std::max(0, space.total - space.thickness);
  const int second = std::clamp(space.secondLeast, 0, both);
  const int most = both - second;  // of the first side
  const int first = keeps == Keeps::kFirst ? wanted : both - std::clamp(wanted, 0, both);
  const int bounded = std::clamp(first, std::clamp(space.firstLeast, 0, most), most);
  return {bounded, both - bounded};
}

#include "toolkit/ScrollGeometry.h"

#include <algorithm>
#include <limits>

namespace ScrollGeometry {
namespace {

constexpr uint32_t kWheelScrollsPage = 0xFFFFFFFF;

// value * factor / divisor, rounded down, for 0 <= value <= divisor and a factor above 0. Both are halved until the
// product cannot overflow, which happens only to numbers that are far longer than any track.
int Proportion(int64_t value, int factor, int64_t divisor) noexcept {
  while (divisor > std::numeric_limits<int64_t>::max() / factor) {
    divisor >>= 1;
    value >>= 1;
  }
  return static_cast<int>(value * factor / divisor);
}

}  // namespace

int64_t MaxPosition(const Range& range) noexcept {
  return std::max<int64_t>(0, std::max<int64_t>(0, range.total) - std::max<int64_t>(0, range.page));
}

int64_t Clamped(const Range& range, int64_t position) noexcept {
  return std::clamp<int64_t>(position, 0, MaxPosition(range));
}

int64_t Moved(const Range& range, int64_t delta) noexcept {
  const int64_t position = Clamped(range, range.position);
  const int64_t max = MaxPosition(range);
  if (delta >= max - position) return max;
  return delta <= -position ? 0 : position + delta;
}

int64_t PositionShowing(int64_t position, int64_t page, int64_t begin, int64_t end) noexcept {
  if (begin < position || end - begin > page) return begin;
  return std::max(position, end - page);
}

Thumb ThumbOf(const Range& range, int track, int minimumThumb) noexcept {
  const int64_t max = MaxPosition(range);
  if (max == 0 || track <= minimumThumb) return {};
  Thumb thumb;
  thumb.length = std::max(minimumThumb, Proportion(std::max<int64_t>(0, range.page), track, range.total));
  thumb.begin = Proportion(Clamped(range, range.position), std::max(1, track - thumb.length), max);
  return thumb;
}

int64_t PositionAt(const Range& range, int track, int minimumThumb, int thumbBegin) noexcept {
  const Thumb thumb = ThumbOf(range, track, minimumThumb);
  const int64_t max = MaxPosition(range);
  const int64_t room = track - thumb.length;  // that the thumb's begin can move in
  if (thumb.length == 0 || room <= 0) return 0;
  const int64_t begin = std::clamp<int64_t>(thumbBegin, 0, room);
  // max * begin / room in two halves that cannot overflow, rounded up so that ThumbOf gives the same begin again.
  return max / room * begin + (max % room * begin + room - 1) / room;
}

Part PartAt(const Thumb& thumb, int place) noexcept {
  if (place < thumb.begin) return Part::kBefore;
  return place < thumb.begin + thumb.length ? Part::kThumb : Part::kAfter;
}

int64_t WheelDistance(int notches, uint32_t linesPerNotch, int64_t line, int64_t page) noexcept {
  const int64_t wholePage = std::max<int64_t>(1, page);
  if (linesPerNotch == kWheelScrollsPage) return -int64_t{notches} * wholePage;
  // A notch never skips what has not been seen: a page is its limit.
  return -int64_t{notches} * std::min<int64_t>(wholePage, line * linesPerNotch);
}

}  // namespace ScrollGeometry

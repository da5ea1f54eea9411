// Marlux 3. The arithmetic of scroll bars: where the thumb lies on its track and which position a dragged thumb means.
// Functions of numbers, without a window. Positions are 64-bit in whatever unit the owner counts (rows or pixels);
// track and thumb are pixels from the start of the track.
#pragma once

#include <cstdint>

namespace ScrollGeometry {

struct Range {
  int64_t total = 0;     // the length of everything, not negative
  int64_t page = 0;      // how much of it is shown at once, not negative
  int64_t position = 0;  // the first thing shown, 0 to MaxPosition
};

struct Thumb {
  int begin = 0;
  int length = 0;  // 0: there is nothing to scroll, or no room for a thumb
};

enum class Part { kBefore, kThumb, kAfter };  // of the track, seen from its start

[[nodiscard]] int64_t MaxPosition(const Range& range) noexcept;
// `position` brought into the range.
[[nodiscard]] int64_t Clamped(const Range& range, int64_t position) noexcept;
// position + delta without overflow, brought into the range.
[[nodiscard]] int64_t Moved(const Range& range, int64_t delta) noexcept;
// The position nearest to the present one with which [begin, end) lies on the page; its begin when it is too long. The
// caller brings the position into its range.
[[nodiscard]] int64_t PositionShowing(int64_t position, int64_t page, int64_t begin, int64_t end) noexcept;

[[nodiscard]] Thumb ThumbOf(const Range& range, int track, int minimumThumb) noexcept;
// The position that a thumb dragged to `thumbBegin` stands for; both ends of the track give both ends of the range.
[[nodiscard]] int64_t PositionAt(const Range& range, int track, int minimumThumb, int thumbBegin) noexcept;
[[nodiscard]] Part PartAt(const Thumb& thumb, int place) noexcept;

// How far a turn of the wheel scrolls. `linesPerNotch` is the user's setting, where WHEEL_PAGESCROLL (all bits set)
// stands for a page; positive notches turn away from the user, towards the start.
[[nodiscard]] int64_t WheelDistance(int notches, uint32_t linesPerNotch, int64_t line, int64_t page) noexcept;

}  // namespace ScrollGeometry

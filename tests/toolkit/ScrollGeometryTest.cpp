#include "toolkit/ScrollGeometry.h"

#include "tests/support/Test.h"

using namespace ScrollGeometry;

constexpr int64_t kHuge = std::numeric_limits<int64_t>::max();
constexpr int kMinimum = 20;

TEST(ScrollGeometry, PlacesTheThumb) {
  const std::tuple<Range, int, int, int> kCases[] = {
      // range, track; the thumb's begin and length
      {{100, 100, 0}, 200, 0, 0},       // everything is shown
      {{100, 50, 0}, 20, 0, 0},         // no room for a thumb
      {{100, 50, 999}, 200, 100, 100},  // a position outside counts as the nearest inside
      {{100, 50, -1}, 200, 0, 100},
      {{1000000, 10, 999990}, 200, 180, 20},  // never shorter than the minimum
      {{kHuge, 1000, kHuge - 1000}, 30000, 29980, 20},
      {{kHuge, kHuge / 2, kHuge - kHuge / 2}, 200, 101, 99},
  };
  for (const auto& [range, track, begin, length] : kCases) {
    const Thumb thumb = ThumbOf(range, track, kMinimum);
    EXPECT_EQ(std::pair(thumb.begin, thumb.length), std::pair(begin, length))
        << range.total << " at " << range.position;
  }
}

TEST(ScrollGeometry, ADraggedThumbStaysWhereItIsDropped) {
  for (Range range : {Range{400, 20, 0}, Range{9611, 30, 0}, Range{int64_t{1} << 40, 100, 0}}) {
    const Thumb first = ThumbOf(range, 300, kMinimum);
    for (int begin = 0; begin <= 300 - first.length; ++begin) {
      range.position = PositionAt(range, 300, kMinimum, begin);
      EXPECT_EQ(ThumbOf(range, 300, kMinimum).begin, begin) << range.total;
    }
    EXPECT_EQ(PositionAt(range, 300, kMinimum, -1000), 0);
    EXPECT_EQ(PositionAt(range, 300, kMinimum, 100000), MaxPosition(range));
  }
}

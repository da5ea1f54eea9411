#include "toolkit/ScrollGeometry.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace {

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

TEST(ScrollGeometry, BringsAStretchIntoView) {
  const int64_t kCases[][4] = {// position, begin, end, position with it; the page is 100 long
                               {50, 60, 150, 50},
                               {50, 40, 60, 40},
                               {50, 140, 160, 60},
                               {50, 200, 320, 200},
                               {50, 20, 190, 20}};
  for (const auto& [position, begin, end, shown] : kCases) {
    EXPECT_EQ(PositionShowing(position, 100, begin, end), shown) << begin << " to " << end;
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

TEST(ScrollGeometry, MovesWithoutOverflow) {
  constexpr Range kRange = {100, 10, 50};
  const std::pair<int64_t, int64_t> kCases[] = {{7, 57}, {-7, 43}, {41, 90}, {-51, 0}, {kHuge, 90}, {-kHuge, 0}};
  for (const auto& [delta, after] : kCases) EXPECT_EQ(Moved(kRange, delta), after) << delta;
  EXPECT_EQ(Moved({kHuge, 1, kHuge - 2}, kHuge), kHuge - 1);
  EXPECT_EQ(Moved({5, 10, 3}, 1), 0);
}

TEST(ScrollGeometry, TurnsNotchesIntoDistance) {
  EXPECT_EQ(WheelDistance(-2, 3, 18, 500), 108);
  EXPECT_EQ(WheelDistance(-1, 100, 1, 20), 20);         // not farther than what is seen
  EXPECT_EQ(WheelDistance(-1, 0xFFFFFFFF, 1, 20), 20);  // the setting for a page
  EXPECT_EQ(WheelDistance(-1, 0xFFFFFFFF, 1, 0), 1);
}

}  // namespace

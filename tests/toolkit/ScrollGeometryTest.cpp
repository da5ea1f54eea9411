#include "toolkit/ScrollGeometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace ScrollGeometry;

constexpr int64_t kHuge = std::numeric_limits<int64_t>::max();
constexpr int kMinimum = 20;

TEST(ScrollGeometry, PlacesTheThumb) {
  const struct {
    Range range;
    int track, begin, length;
  } kCases[] = {
      {{100, 100, 0}, 200, 0, 0},       // everything is shown
      {{0, 0, 0}, 200, 0, 0},           // nothing there
      {{100, 50, 0}, 20, 0, 0},         // no room for a thumb
      {{100, 50, 0}, 200, 0, 100},      //
      {{100, 50, 50}, 200, 100, 100},   // the end of the range is the end of the track
      {{100, 50, 999}, 200, 100, 100},  // a position outside counts as the nearest inside
      {{100, 50, -1}, 200, 0, 100},     //
      {{1000000, 10, 0}, 200, 0, 20},   // never shorter than the minimum
      {{1000000, 10, 999990}, 200, 180, 20},
      {{262144 * int64_t{40}, 800, 262144 * int64_t{40} - 800}, 200, 180, 20},
      {{kHuge, 1000, kHuge - 1000}, 30000, 29980, 20},
      {{kHuge, kHuge / 2, kHuge - kHuge / 2}, 200, 101, 99},
  };
  for (const auto& c : kCases) {
    const Thumb thumb = ThumbOf(c.range, c.track, kMinimum);
    EXPECT_EQ(thumb.begin, c.begin) << c.range.total << " at " << c.range.position;
    EXPECT_EQ(thumb.length, c.length) << c.range.total << " at " << c.range.position;
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
  const Range kRanges[] = {{400, 20, 0}, {9611, 30, 0}, {262144, 25, 0}, {int64_t{1} << 40, 100, 0}};
  for (Range range : kRanges) {
    const Thumb first = ThumbOf(range, 300, kMinimum);
    for (int begin = 0; begin <= 300 - first.length; ++begin) {
      range.position = PositionAt(range, 300, kMinimum, begin);
      EXPECT_EQ(ThumbOf(range, 300, kMinimum).begin, begin) << range.total;
    }
    EXPECT_EQ(range.position, MaxPosition(range));
    EXPECT_EQ(PositionAt(range, 300, kMinimum, -1000), 0);
    EXPECT_EQ(PositionAt(range, 300, kMinimum, 100000), MaxPosition(range));
  }
}

TEST(ScrollGeometry, MovesWithoutOverflow) {
  const struct {
    Range range;
    int64_t delta, after;
  } kCases[] = {
      {{100, 10, 50}, 7, 57},     {{100, 10, 50}, -7, 43},
      {{100, 10, 50}, 40, 90},    {{100, 10, 50}, 41, 90},
      {{100, 10, 50}, -51, 0},    {{100, 10, 50}, kHuge, 90},
      {{100, 10, 50}, -kHuge, 0}, {{kHuge, 1, kHuge - 2}, kHuge, kHuge - 1},
      {{5, 10, 3}, 1, 0},
  };
  for (const auto& c : kCases) EXPECT_EQ(Moved(c.range, c.delta), c.after) << c.range.position << " by " << c.delta;
}

TEST(ScrollGeometry, TurnsNotchesIntoDistance) {
  EXPECT_EQ(WheelDistance(1, 3, 1, 20), -3);
  EXPECT_EQ(WheelDistance(-2, 3, 18, 500), 108);
  EXPECT_EQ(WheelDistance(-1, 100, 1, 20), 20);         // not farther than what is seen
  EXPECT_EQ(WheelDistance(-1, 0xFFFFFFFF, 1, 20), 20);  // the setting for a page
  EXPECT_EQ(WheelDistance(-1, 0xFFFFFFFF, 1, 0), 1);
}

}  // namespace

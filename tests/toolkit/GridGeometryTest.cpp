#include "toolkit/GridGeometry.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using namespace GridGeometry;

// 300 x 220 below and right of a frame of one pixel: a title row of 20 and ten records of 20, three columns.
class GridGeometryTest : public testing::Test {
 protected:
  GridGeometryTest() {
    layout_.area = {1, 1, 301, 221};
    layout_.titleHeight = layout_.rowHeight = 20;
    layout_.widths = widths_;
    layout_.columns = 3;
    layout_.records = 1000;
  }

  int32_t widths_[3] = {50, 100, 70};
  Layout layout_;
};

TEST_F(GridGeometryTest, DividesTheClientArea) {
  const struct {
    const char* what;
    uint32_t records;
    int width, height;
    std::tuple<bool, bool, LONG, LONG> shown;  // the bars, then the area's right and bottom
  } kCases[] = {
      {"all fits", 5, 222, 122, {false, false, 221, 121}},
      {"a vertical bar makes a horizontal one necessary", 6, 222, 122, {true, true, 207, 107}},
      {"a horizontal bar makes a vertical one necessary", 5, 221, 122, {true, true, 206, 107}},
      {"no room at all", 5, 0, 0, {true, true, 1, 1}},
      {"more rows than pixels can count", 0xFFFFFFFE, 300, 122, {true, false, 285, 121}},
  };
  for (const auto& c : kCases) {
    layout_.records = c.records;
    const View view = ViewOf(layout_, c.width, c.height, 14);
    EXPECT_EQ(std::tuple(view.vertical, view.horizontal, view.area.right, view.area.bottom), c.shown) << c.what;
  }
}

TEST_F(GridGeometryTest, FindsTheGapForADraggedTitle) {
  layout_.scrollX = 10;
  const struct {
    int x;
    uint32_t gap;
    int edge;
  } kCases[] = {{-50, 0, -9}, {15, 0, -9}, {16, 1, 41}, {90, 1, 41}, {91, 2, 141}, {176, 3, 211}, {900, 3, 211}};
  for (const auto& c : kCases) {
    EXPECT_EQ(GapAt(layout_, c.x), c.gap) << c.x;
    EXPECT_EQ(GapEdge(layout_, c.gap), c.edge) << c.x;
  }
  constexpr uint32_t kPlaces[4][4] = {{0, 0, 1, 2}, {0, 1, 1, 2}, {0, 1, 2, 2}, {0, 1, 2, 3}};
  for (uint32_t column = 0; column < 4; ++column) {
    for (uint32_t gap = 0; gap < 4; ++gap) EXPECT_EQ(PlaceInGap(column, gap), kPlaces[column][gap]);
  }
  const int kAfter[][4] = {{2, 2, 0, 0}, {0, 2, 0, 1}, {1, 0, 2, 0}, {0, 0, 2, 2}, {3, 0, 2, 3}, {-1, 2, 0, -1}};
  for (const auto& [place, from, to, after] : kAfter) {
    EXPECT_EQ(PlaceAfterMove(place, static_cast<uint32_t>(from), static_cast<uint32_t>(to)), after) << place;
  }
}

TEST_F(GridGeometryTest, TellsWhatIsUnderThePoint) {
  layout_.top = 7;
  const struct {
    int x, y;
    Part part;
    int column;
    uint32_t record;
  } kCases[] = {
      {47, 20, Part::kBorder, 0, kNoRecord},
      {55, 1, Part::kBorder, 0, kNoRecord},
      {56, 5, Part::kTitle, 1, kNoRecord},
      {225, 5, Part::kBorder, 2, kNoRecord},  // the last border from outside
      {226, 5, Part::kNothing, kNoColumn, kNoRecord},
      {47, 21, Part::kRecord, 0, 7},  // borders are caught in the title row only
      {290, 220, Part::kRecord, kNoColumn, 16},
      {0, 50, Part::kNothing, kNoColumn, kNoRecord},
  };
  for (const auto& c : kCases) {
    const Hit hit = HitTest(layout_, c.x, c.y, 4);
    EXPECT_EQ(std::tuple(hit.part, hit.column, hit.record), std::tuple(c.part, c.column, c.record))
        << c.x << "," << c.y;
  }
}

TEST_F(GridGeometryTest, HitsNothingBelowTheLastRecordAndFollowsTheScrolledColumns) {
  layout_.records = 2;
  EXPECT_EQ(HitTest(layout_, 10, 60, 4).record, 1u);
  EXPECT_EQ(HitTest(layout_, 10, 61, 4).part, Part::kNothing);
  layout_.scrollX = 40;
  EXPECT_EQ(HitTest(layout_, 20, 30, 4).column, 1);
  widths_[1] = -7;  // drawn as a sensible width; the right one of two close borders is caught
  EXPECT_EQ(HitTest(layout_, 11 + kMinWidth - 5, 5, 8).column, 1);
}

TEST_F(GridGeometryTest, ShowsTheCutRecordToo) {
  layout_.top = 990;
  EXPECT_EQ(ShownRecords(layout_).end, 1000u);
  layout_.area.bottom -= 5;
  layout_.top = 3;
  EXPECT_EQ(FullRecords(layout_), 9u);
  EXPECT_EQ(ShownRecords(layout_).end, 13u);
  EXPECT_EQ(RecordStrip(layout_, 12).bottom, layout_.area.bottom);
  for (const uint32_t unseen : {2, 13}) EXPECT_EQ(RecordStrip(layout_, unseen).right, 0);
  layout_.records = layout_.top = 0xFFFFFFFE;
  EXPECT_EQ(ShownRecords(layout_).first, ShownRecords(layout_).end);
  layout_.area.bottom = 5;  // less than the title row
  EXPECT_EQ(FullRecords(layout_), 1u);
}

TEST_F(GridGeometryTest, KeysMoveTheCurrentRecord) {
  layout_.top = 500;
  const uint32_t kCases[][3] = {
      {VK_UP, 0, 0},    {VK_DOWN, 999, 999}, {VK_NEXT, 5, 14},          {VK_NEXT, 995, 999},     {VK_PRIOR, 15, 6},
      {VK_PRIOR, 3, 0}, {VK_END, 7, 999},    {VK_DOWN, kNoRecord, 500}, {VK_UP, kNoRecord, 500},
  };
  for (const auto& [key, from, expected] : kCases) {
    uint32_t after = 77777;
    EXPECT_TRUE(RecordAfterKey(layout_, key, from, after));
    EXPECT_EQ(after, expected) << "key " << key << " from " << from;
  }
}

}  // namespace

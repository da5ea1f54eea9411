#include "toolkit/GridGeometry.h"

#include <gtest/gtest.h>

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

TEST_F(GridGeometryTest, DrawsSenselessWidthsAsSensibleOnes) {
  EXPECT_EQ(DrawnWidth(68), 68);
  EXPECT_EQ(DrawnWidth(0), kMinWidth);
  EXPECT_EQ(DrawnWidth(INT32_MIN), kMinWidth);
  EXPECT_EQ(DrawnWidth(INT32_MAX), kMaxWidth);
  widths_[1] = -7;
  EXPECT_EQ(ColumnsWidth(layout_), 120 + kMinWidth);
  EXPECT_EQ(ColumnStrip(layout_, 2).left, 1 + 50 + kMinWidth);
}

TEST_F(GridGeometryTest, DividesTheClientArea) {
  struct Case {
    const char* what;
    uint32_t records;
    int width, height;
    bool vertical, horizontal;
    int right, bottom;  // of the area
  };
  const Case kCases[] = {
      {"all fits", 5, 222, 122, false, false, 221, 121},
      {"one row too many", 6, 240, 122, true, false, 225, 121},
      {"a vertical bar makes a horizontal one necessary", 6, 222, 122, true, true, 207, 107},
      {"a horizontal bar makes a vertical one necessary", 5, 221, 122, true, true, 206, 107},
      {"too narrow only", 2, 150, 122, false, true, 149, 107},
      {"no room at all", 5, 0, 0, true, true, 1, 1},
      {"more rows than pixels can count", 0xFFFFFFFE, 300, 122, true, false, 285, 121},
  };
  for (const Case& c : kCases) {
    layout_.records = c.records;
    const View view = ViewOf(layout_, c.width, c.height, 14);
    EXPECT_EQ(view.vertical, c.vertical) << c.what;
    EXPECT_EQ(view.horizontal, c.horizontal) << c.what;
    EXPECT_EQ(view.area.right, c.right) << c.what;
    EXPECT_EQ(view.area.bottom, c.bottom) << c.what;
  }
}

TEST_F(GridGeometryTest, TellsWhatIsUnderThePoint) {
  layout_.top = 7;
  struct Case {
    int x, y;
    Part part;
    int column;
    uint32_t record;
  };
  const Case kCases[] = {
      {10, 5, Part::kTitle, 0, kNoRecord},
      {46, 5, Part::kTitle, 0, kNoRecord},
      {47, 20, Part::kBorder, 0, kNoRecord},
      {55, 1, Part::kBorder, 0, kNoRecord},
      {56, 5, Part::kTitle, 1, kNoRecord},
      {225, 5, Part::kBorder, 2, kNoRecord},  // the last border from outside
      {226, 5, Part::kNothing, kNoColumn, kNoRecord},
      {47, 21, Part::kRecord, 0, 7},  // borders are caught in the title row only
      {60, 41, Part::kRecord, 1, 8},
      {290, 220, Part::kRecord, kNoColumn, 16},
      {10, 221, Part::kNothing, kNoColumn, kNoRecord},
      {0, 50, Part::kNothing, kNoColumn, kNoRecord},
      {10, -3, Part::kNothing, kNoColumn, kNoRecord},
  };
  for (const Case& c : kCases) {
    const Hit hit = HitTest(layout_, c.x, c.y, 4);
    EXPECT_EQ(hit.part, c.part) << c.x << ", " << c.y;
    EXPECT_EQ(hit.column, c.column) << c.x << ", " << c.y;
    EXPECT_EQ(hit.record, c.record) << c.x << ", " << c.y;
  }
}

TEST_F(GridGeometryTest, HitsNothingBelowTheLastRecordAndFollowsTheScrolledColumns) {
  layout_.records = 2;
  EXPECT_EQ(HitTest(layout_, 10, 60, 4).record, 1u);
  EXPECT_EQ(HitTest(layout_, 10, 61, 4).part, Part::kNothing);
  layout_.scrollX = 40;
  EXPECT_EQ(HitTest(layout_, 20, 30, 4).column, 1);
  EXPECT_EQ(HitTest(layout_, 11, 5, 4).part, Part::kBorder);
}

TEST_F(GridGeometryTest, TheRightOneOfTwoCloseBordersIsCaught) {
  widths_[1] = 0;
  EXPECT_EQ(HitTest(layout_, 1 + 50 + kMinWidth - 5, 5, 8).column, 1);
}

TEST_F(GridGeometryTest, ShowsTheCutRecordToo) {
  layout_.top = 990;
  EXPECT_EQ(ShownRecords(layout_).end, 1000u);
  layout_.area.bottom -= 5;
  layout_.top = 3;
  EXPECT_EQ(FullRecords(layout_), 9u);
  EXPECT_EQ(ShownRecords(layout_).end, 13u);
  EXPECT_EQ(RecordStrip(layout_, 12).bottom, layout_.area.bottom);
  EXPECT_EQ(RecordStrip(layout_, 13).right, 0);
  EXPECT_EQ(RecordStrip(layout_, 2).right, 0);
  const RecordRange part = RecordsIn(layout_, {0, 45, 10, 62});
  EXPECT_EQ(part.first, 4u);
  EXPECT_EQ(part.end, 6u);
  layout_.records = layout_.top = 0xFFFFFFFE;
  EXPECT_EQ(ShownRecords(layout_).first, ShownRecords(layout_).end);
  layout_.area.bottom = 5;  // less than the title row
  EXPECT_EQ(FullRecords(layout_), 1u);
  EXPECT_EQ(TitleRow(layout_).bottom, 5);
  EXPECT_EQ(RecordStrip(layout_, 0).right, 0);
}

TEST_F(GridGeometryTest, BringsIntoViewWithTheLeastScrolling) {
  layout_.top = 100;
  EXPECT_EQ(TopFor(layout_, 99), 99u);
  EXPECT_EQ(TopFor(layout_, 100), 100u);
  EXPECT_EQ(TopFor(layout_, 109), 100u);
  EXPECT_EQ(TopFor(layout_, 110), 101u);
}

TEST_F(GridGeometryTest, KeysMoveTheCurrentRecord) {
  layout_.top = 500;
  struct Case {
    uint32_t key, from, after;
  };
  const Case kCases[] = {
      {VK_UP, 5, 4},
      {VK_UP, 0, 0},
      {VK_DOWN, 5, 6},
      {VK_DOWN, 999, 999},
      {VK_NEXT, 5, 14},
      {VK_NEXT, 995, 999},
      {VK_PRIOR, 15, 6},
      {VK_PRIOR, 3, 0},
      {VK_HOME, 700, 0},
      {VK_END, 7, 999},
      {VK_DOWN, kNoRecord, 500},
      {VK_UP, kNoRecord, 500},
      {VK_END, kNoRecord, 999},
  };
  for (const Case& c : kCases) {
    uint32_t after = 77777;
    EXPECT_TRUE(RecordAfterKey(layout_, c.key, c.from, after));
    EXPECT_EQ(after, c.after) << "key " << c.key << " from " << c.from;
  }
  uint32_t after = 0;
  EXPECT_FALSE(RecordAfterKey(layout_, VK_TAB, 5, after));
  layout_.records = 0;
  EXPECT_FALSE(RecordAfterKey(layout_, VK_DOWN, kNoRecord, after));
}

}  // namespace

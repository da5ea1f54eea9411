#include "toolkit/GridGeometry.h"

#include "tests/support/Test.h"

using namespace GridGeometry;

// 300 x 220 below and right of a frame of one pixel: a title row of 20 and ten records of 20, three columns.
struct GridGeometryTest : testing::Test {
  int32_t widths_[3] = {50, 100, 70};
  Layout layout_ = {
      .area = {1, 1, 301, 221}, .titleHeight = 20, .rowHeight = 20, .widths = widths_, .columns = 3, .records = 1000};
};

TEST_F(GridGeometryTest, DividesTheClientArea) {
  // What is shown: the bars, then the area's right and bottom.
  using Shown = std::tuple<bool, bool, LONG, LONG>;
  const std::tuple<const char*, uint32_t, int, int, Shown> kCases[] = {
      {"all fits", 5, 222, 122, {false, false, 221, 121}},
      {"a vertical bar makes a horizontal one necessary", 6, 222, 122, {true, true, 207, 107}},
      {"a horizontal bar makes a vertical one necessary", 5, 221, 122, {true, true, 206, 107}},
      {"no room at all", 5, 0, 0, {true, true, 1, 1}},
      {"more rows than pixels can count", 0xFFFFFFFE, 300, 122, {true, false, 285, 121}},
  };
  for (const auto& [what, records, width, height, shown] : kCases) {
    layout_.records = records;
    const View view = ViewOf(layout_, width, height, 14);
    EXPECT_EQ(Shown(view.vertical, view.horizontal, view.area.right, view.area.bottom), shown) << what;
  }
}

TEST_F(GridGeometryTest, FindsTheGapForADraggedTitle) {
  layout_.scrollX = 10;
  const std::tuple<int, uint32_t, int> kCases[] = {
      // where, the gap, its edge
      {-50, 0, -9}, {15, 0, -9}, {16, 1, 41}, {90, 1, 41}, {91, 2, 141}, {176, 3, 211}, {900, 3, 211}};
  for (const auto& [x, gap, edge] : kCases) {
    EXPECT_EQ(GapAt(layout_, x), gap) << x;
    EXPECT_EQ(GapEdge(layout_, gap), edge) << x;
  }
  constexpr uint32_t kInGap[][3] = {{0, 0, 0}, {0, 1, 0}, {0, 2, 1}, {2, 0, 0}, {2, 2, 2}, {2, 3, 2}, {1, 3, 2}};
  for (const auto& [column, gap, place] : kInGap) EXPECT_EQ(PlaceInGap(column, gap), place) << column << " " << gap;
  const int kAfter[][4] = {{2, 2, 0, 0}, {0, 2, 0, 1}, {1, 0, 2, 0}, {2, 0, 2, 1}, {3, 0, 2, 3}, {-1, 2, 0, -1}};
  for (const auto& [place, from, to, after] : kAfter) {
    EXPECT_EQ(PlaceAfterMove(place, static_cast<uint32_t>(from), static_cast<uint32_t>(to)), after) << place;
  }
}

TEST_F(GridGeometryTest, TellsWhatIsUnderThePoint) {
  const auto hit = [this](int x, int y, int grab = 4) {
    const Hit found = HitTest(layout_, x, y, grab);
    return std::tuple(found.part, found.column, found.record);
  };
  using At = std::tuple<Part, int, uint32_t>;
  layout_.top = 7;
  EXPECT_EQ(hit(47, 20), At(Part::kBorder, 0, kNoRecord));
  EXPECT_EQ(hit(55, 1), At(Part::kBorder, 0, kNoRecord));
  EXPECT_EQ(hit(56, 5), At(Part::kTitle, 1, kNoRecord));
  EXPECT_EQ(hit(225, 5), At(Part::kBorder, 2, kNoRecord)) << "the last border from outside";
  EXPECT_EQ(hit(226, 5), At(Part::kNothing, kNoColumn, kNoRecord));
  EXPECT_EQ(hit(47, 21), At(Part::kRecord, 0, 7)) << "borders are caught in the title row only";
  EXPECT_EQ(hit(290, 220), At(Part::kRecord, kNoColumn, 16));
  EXPECT_EQ(hit(0, 50), At(Part::kNothing, kNoColumn, kNoRecord));
  layout_.records = 9;
  EXPECT_EQ(hit(10, 60), At(Part::kRecord, 0, 8));
  EXPECT_EQ(hit(10, 61), At(Part::kNothing, kNoColumn, kNoRecord)) << "below the last record";
  layout_.scrollX = 40;
  EXPECT_EQ(hit(20, 30), At(Part::kRecord, 1, 7));
  widths_[1] = -7;  // drawn as a sensible width; the right one of two close borders is caught
  EXPECT_EQ(hit(11 + kMinWidth - 5, 5, 8), At(Part::kBorder, 1, kNoRecord));
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

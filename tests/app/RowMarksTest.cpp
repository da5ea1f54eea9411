#include "app/RowMarks.h"

#include <set>

#include "tests/support/Test.h"

namespace {

// Records named by letters, shown in the order of a text: Shown("cab") has record 'a' in row 2.
char records[128];

struct Shown : TmyList {
  explicit Shown(const std::string& letters) {
    for (const char c : letters) Add(&records[static_cast<size_t>(c)]);
  }
};

std::string Marked(const RowMarks& marks) {
  std::string text;
  for (char c = 'a'; c <= 'z'; ++c) {
    if (marks.IsMarked(&records[static_cast<size_t>(c)])) text += c;
  }
  EXPECT_EQ(text.size(), marks.Count());
  return text;
}

}  // namespace

// Clicks are written as row and kind, one after the other: "p3" plain, "c3" control, "s3" shift. A single mark moves
// with control; with several, control adds. Without an anchor the range is the row itself. The title row and rows below
// the last are no rows.
TEST(RowMarks, FollowsClicks) {
  const std::tuple<const char*, const char*, uint32_t> kCases[] = {
      {"c3c3", "", 3},     {"c3c5", "e", 5},     {"p8s3", "cdefgh", 8},  {"s4s6", "def", 4}, {"p2s4c6", "bcdf", 6},
      {"p2s4c3", "bd", 3}, {"p2s3c3c5", "e", 5}, {"p2s4s6", "bcdef", 2}, {"p2s4p7", "", 7},  {"p3p0p9s5", "cde", 3}};
  const Shown shown("abcdefgh");
  for (const auto& [clicks, marked, anchorRow] : kCases) {
    RowMarks marks;
    for (const char* click = clicks; *click; click += 2) {
      const auto row = static_cast<uint32_t>(click[1] - '0');
      const auto kind = static_cast<ClickKind>(std::string_view("pcs").find(*click));
      EXPECT_EQ(marks.Click(shown, row, kind), row >= 1 && row <= 8) << clicks;
    }
    EXPECT_EQ(Marked(marks), marked) << clicks;
    EXPECT_EQ(marks.AnchorRow(), anchorRow) << clicks;
  }
}

TEST(RowMarks, BelongToRecordsNotToRows) {
  RowMarks marks;
  marks.Click(Shown("abcdef"), 2, ClickKind::kPlain);
  marks.Click(Shown("fedcba"), 6, ClickKind::kShift);  // the anchor 'b' is in row 5 now
  EXPECT_EQ(Marked(marks), "ab");
  EXPECT_EQ(marks.AnchorRow(), 5U);
  marks.Click(Shown("def"), 2, ClickKind::kShift);  // the anchor is filtered away
  EXPECT_EQ(Marked(marks), "abe");
  EXPECT_EQ(marks.AnchorRecord(), &records[size_t{'e'}]);
}

TEST(PointerSet, AgreesWithAPlainSet) {
  PointerSet set;
  std::set<const void*> plain;
  std::mt19937 random(5);
  // Neighbouring addresses, so that probing runs into each other; growing and shrinking by turns.
  static char addresses[4000];
  for (uint32_t round = 0; round < 60000; ++round) {
    const char* pointer = &addresses[random() % 1000 * 4];
    if (random() % 1000 < (round / 10000 % 2 == 0 ? 700U : 300U)) {
      ASSERT_EQ(set.Insert(pointer), plain.insert(pointer).second);
    } else {
      ASSERT_EQ(set.Erase(pointer), plain.erase(pointer) == 1);
    }
    ASSERT_FALSE(set.Contains(records));  // a full table would search forever
    ASSERT_EQ(set.Count(), plain.size());
  }
  for (const char& each : addresses) ASSERT_EQ(set.Contains(&each), plain.count(&each) == 1);
  EXPECT_FALSE(set.Insert(nullptr));
}

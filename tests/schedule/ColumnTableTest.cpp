#include "schedule/ColumnTable.h"

#include "tests/support/Test.h"

namespace {

constexpr uint32_t kStarts[] = {0, 4, 8};

bool Load(ColumnTable& table, const std::string& bytes, bool sorted = false) {
  return table.Load(bytes.data(), static_cast<uint32_t>(bytes.size()), kStarts, 3, 0, sorted);
}

// "a|b|c;" for each row, "-" for a blank cell.
std::string Shown(const ColumnTable& table) {
  std::string text;
  for (uint32_t row = 0; row < table.Rows(); ++row) {
    for (uint32_t column = 0; column < table.Columns(); ++column) {
      const char* cell = table.Row(row)[column];
      if (column > 0) text += '|';
      text += cell ? cell : "-";
    }
    text += ';';
  }
  return text;
}

}  // namespace

// Cells lose the character before the next column or before the LF; zeros end a text, tabs are characters.
TEST(ColumnTable, CutsLinesIntoCells) {
  const std::pair<std::string, std::string> kCases[] = {{"", ""},
                                                        {"AB  CD  EFG H\r\n", "AB|CD|EFG H;"},
                                                        {"  A  B    C  \r\n", "A|B|C;"},
                                                        {"    CD\r\nAB      E\r\n", "-|CD|-;AB|-|E;"},
                                                        {"ABCDEFGHI\r\n", "ABC|EFG|I;"},
                                                        {"   A   BC\r\n", "||C;"},
                                                        {"AB  CD  EFG\nAB  CD  EF \n", "AB|CD|EF;AB|CD|EF;"},
                                                        {"AB  CD  EFG", "AB|CD|EFG;"},
                                                        {"AB\r\nABCD", "AB|-|-;ABCD|-|-;"},
                                                        {"AB  CD\r\n   ", "AB|CD|-;"},
                                                        {"A\r\n\r\nB\r\n", "A|-|-;-|-|-;B|-|-;"},
                                                        {";AB CD\r\nAB\r\n ;B\r\n; CD", "AB|-|-;;B|-|-;"},
                                                        {"A\tB C\t  \t\r\n", "A\tB|C\t|\t;"},
                                                        {std::string("A\0B CD\r\n\0AB CD\r\n", 16), "A|CD|-;|CD|-;"},
                                                        {"A\rB C\r  E\r\r\n", "A\rB|C|E;"},
                                                        {"\xFF\x80  \xC4\r\n", "\xFF\x80|\xC4|-;"}};
  ColumnTable table;
  for (const auto& [bytes, rows] : kCases) {
    EXPECT_TRUE(Load(table, bytes));
    EXPECT_EQ(Shown(table), rows) << bytes;
  }
}

TEST(ColumnTable, FindsCodesInTheOrderOfTheirBytes) {
  ColumnTable table;
  ASSERT_TRUE(Load(table, "b   1\r\nB   2\r\nAB  3\r\n    4\r\nA   5\r\nb   6\r\n\xC4   7\r\n", true));
  const uint32_t kOrder[] = {3, 4, 2, 1, 0, 5, 6};
  for (uint32_t position = 0; position < 7; ++position) {
    EXPECT_EQ(table.RowAt(position), kOrder[position]);
    EXPECT_EQ(table.PositionOf(kOrder[position]), position);
  }
  const std::tuple<const char*, uint32_t, uint32_t, int32_t> kCases[] = {
      {"A", 0, 7, 4}, {"AB", 0, 6, 2}, {"B", 0, 0xFFFFFFFF, 1}, {"\xC4", 0, 7, 6}, {"a", 0, 7, -1}, {"ABC", 0, 7, -1},
      {"", 0, 7, 3},  {"A", 2, 7, -1}, {"B", 0, 2, -1},         {"B", 3, 3, 1},    {"A", 7, 3, -1}, {nullptr, 0, 7, -1},
  };
  for (const auto& [code, from, to, row] : kCases) EXPECT_EQ(table.FindCode(code, from, to), row) << code;
  EXPECT_STREQ(table.Text(2, 1), "3");
  for (const int32_t row : {-1, 7}) EXPECT_STREQ(table.Text(row, 1), "");
  EXPECT_STREQ(table.Text(2, 3), "");

  EXPECT_TRUE(Load(table, "b\r\na\r\n"));
  EXPECT_EQ(table.RowAt(0), 0U) << "not sorted";
  EXPECT_TRUE(table.Load("a   2\nb   1\n", 12, kStarts, 3, 1, true));
  EXPECT_EQ(table.RowAt(0), 0U) << "both keys lose their only character to the LF: the order of the file";
  EXPECT_TRUE(table.Load("a   2\r\nb   1\r\n", 14, kStarts, 3, 1, true));
  EXPECT_EQ(table.RowAt(0), 1U);
}

TEST(ColumnTable, RefusesWhatMakesNoSense) {
  constexpr uint32_t kFalling[] = {0, 8, 4};
  const std::tuple<const uint32_t*, uint32_t, uint32_t> kCases[] = {
      {kFalling, 3, 0}, {kStarts, 0, 0}, {kStarts, 3, 3}, {kStarts, ColumnTable::kMostColumns + 1, 0}};
  ColumnTable table;
  for (const auto& [starts, columns, sortKey] : kCases) {
    ASSERT_TRUE(Load(table, "A\r\nB", true));
    EXPECT_FALSE(table.Load("A", 1, starts, columns, sortKey, true));
    EXPECT_EQ(table.FindCode("A", 0, 7), -1) << "what was there is gone";
  }
  EXPECT_TRUE(Load(table, std::string(ColumnTable::kMostRows + 5, '\n')));
  EXPECT_EQ(table.Rows(), ColumnTable::kMostRows);
}

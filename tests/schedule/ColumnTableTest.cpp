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
  const std::pair<std::string, std::string> kCases[] = {{"AB  CD  EFG H\r\n", "AB|CD|EFG H;"},
                                                        {"    CD\r\nAB      E\r\n", "-|CD|-;AB|-|E;"},
                                                        {"ABCDEFGHI\r\n", "ABC|EFG|I;"},
                                                        {"   A   BC\r\n", "||C;"},
                                                        {"AB  CD  EFG\nAB  CD  EF \n", "AB|CD|EF;AB|CD|EF;"},
                                                        {"AB  CD  EFG", "AB|CD|EFG;"},
                                                        {"AB  CD\r\n   ", "AB|CD|-;"},
                                                        {"A\r\n\r\nB\r\n", "A|-|-;-|-|-;B|-|-;"},
                                                        {";AB CD\r\nAB\r\n ;B\r\n; CD", "AB|-|-;;B|-|-;"},
                                                        {std::string("A\0B CD\r\n\0AB CD\r\n", 16), "A|CD|-;|CD|-;"}};
  ColumnTable table;
  for (const auto& [bytes, rows] : kCases) {
    EXPECT_TRUE(Load(table, bytes));
    EXPECT_EQ(Shown(table), rows) << bytes;
  }
}

TEST(ColumnTable, FindsCodesInTheOrderOfTheirBytes) {
  ColumnTable table;
  ASSERT_TRUE(Load(table, "b   1\r\nB   2\r\nAB  3\r\n    4\r\nA   5\r\nb   6\r\n\xC4   7\r\n", true));
  std::vector<uint32_t> order;
  for (uint32_t position = 0; position < table.Rows(); ++position) order.push_back(table.RowAt(position));
  EXPECT_THAT(order, ElementsAre(3, 4, 2, 1, 0, 5, 6));
  const std::pair<const char*, int32_t> kCases[] = {{"A", 4}, {"AB", 2}, {"\xC4", 6}, {"a", -1}, {"ABC", -1}};
  for (const auto& [code, row] : kCases) EXPECT_EQ(table.FindCode(code, 0, 7), row) << code;
  EXPECT_STREQ(table.Text(2, 1), "3");
  for (const int32_t row : {-1, 7}) EXPECT_STREQ(table.Text(row, 1), "");
  EXPECT_TRUE(Load(table, "b\r\na\r\n"));
  EXPECT_EQ(table.RowAt(0), 0U) << "not sorted";
}

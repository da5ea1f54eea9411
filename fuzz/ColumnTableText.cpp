#include "fuzz/Fuzz.h"
#include "schedule/ColumnTable.h"

void Try(Input& input) {
  const uint32_t count = input.Take<uint8_t>() % 8, key = input.Take<uint8_t>();
  const bool sorted = (key & 0x80) != 0;
  std::vector<uint32_t> starts;
  for (uint32_t i = 0; i < count; ++i) starts.push_back(input.Take<uint8_t>() % 40);
  const std::string_view text = input.Rest();
  ColumnTable table;
  if (!table.Load(text.data(), static_cast<uint32_t>(text.size()), starts.data(), count, key & 7, sorted)) {
    REQUIRE(table.Rows() == 0);
    return;
  }
  const uint32_t column = table.SortKey();
  for (uint32_t row = 0; row < table.Rows(); ++row) {
    for (uint32_t i = 0; i < count; ++i) {
      const char* const cell = table.Row(row)[i];
      REQUIRE(!cell || std::strlen(cell) <= text.size());
    }
    REQUIRE(table.PositionOf(table.RowAt(row)) == row);
    const auto at = static_cast<int32_t>(table.RowAt(row));
    if (sorted && row > 0) {
      REQUIRE(strcmp(table.Text(static_cast<int32_t>(table.RowAt(row - 1)), column), table.Text(at, column)) <= 0);
    }
    if (sorted && column == 0 && table.Row(static_cast<uint32_t>(at))[0]) {
      const int32_t found = table.FindCode(table.Text(at, 0), 0, table.Rows());
      REQUIRE(found >= 0 && strcmp(table.Text(found, 0), table.Text(at, 0)) == 0);
    }
  }
}

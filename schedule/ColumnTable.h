// Marlux 3. A text of fixed columns as a table of cells.
//
//   constexpr uint32_t kStarts[] = {0, 4};
//   table.Load(bytes, size, kStarts, 2, 0, true);      // "RDR Radio Redonda" ...
//   const int32_t row = table.FindCode("RDR", 0, table.Rows());
//   table.Text(row, 1)                                 // "Radio Redonda"
//
// Lines that begin with ";" are comments, any other line is a row, an empty one too. A cell goes from the first
// character that is no blank to the last one. The character before the next column or the line's LF always belongs to
// the gap between columns: a cell that runs up to it loses it. CR counts as a blank; tabs and zeros are characters like
// others, though a text ends for its readers at the zero.
#pragma once

#include <memory>

#include "foundation/Compiler.h"

class ColumnTable {
 public:
  static constexpr uint32_t kMostRows = 0x40000;  // lines beyond them are not read
  static constexpr uint32_t kMostColumns = 64;
  // What is behind it in a line is left out: texts are measured and compared again and again for each of their readers.
  static constexpr uint32_t kLongestLast = 4096;

  // Replaces what was there. `starts` are the characters at which columns begin, ascending; the last column goes to the
  // end of the line, or kLongestLast characters far. A sorted table is in the order of the bytes of its column
  // `sortKey`, rows of the same key in that of the file. False, with the table empty, for columns that make no sense
  // and when memory is short.
  bool Load(const char* bytes, uint32_t size, const uint32_t* starts, uint32_t columnCount, uint32_t sortKey,
            bool sorted);
  void Clear() noexcept;

  [[nodiscard]] uint32_t Rows() const noexcept { return rows_; }
  [[nodiscard]] uint32_t Columns() const noexcept { return columns_; }
  [[nodiscard]] uint32_t SortKey() const noexcept { return sortKey_; }
  // The cells of a row, in the order of the file; null for a blank cell. The row must be one of the table.
  [[nodiscard]] const char* const* Row(uint32_t row) const noexcept { return &cells_[row * columns_]; }
  // One cell; "" for a blank one and where the table has none. Rows of -1, as FindCode gives them, have none.
  [[nodiscard]] const char* Text(int32_t row, uint32_t column) const noexcept;
  // From a position in the sorted order to the row and back; both must be below Rows().
  [[nodiscard]] uint32_t RowAt(uint32_t position) const noexcept { return order_[position]; }
  [[nodiscard]] uint32_t PositionOf(uint32_t row) const noexcept { return positions_[row]; }
  // The row whose first cell is the code, looked for by bisection over the sorted positions `from` to `to`, both
  // included; positions beyond the last are cut. -1 when there is none, and for null. The table must be sorted by its
  // first column.
  [[nodiscard]] int32_t FindCode(const char* code, uint32_t from, uint32_t to) const noexcept;

 private:
  [[nodiscard]] bool Allocate(const char* bytes, uint32_t size);
  void CutLines(uint32_t size, const uint32_t* starts) noexcept;
  void CutLine(char* line, uint32_t length, bool isLast, const uint32_t* starts) noexcept;
  void Order(bool sorted) noexcept;

  std::unique_ptr<char[]> copy_;           // the bytes, with zeros behind the cells
  std::unique_ptr<const char*[]> cells_;   // row by row; they point into copy_
  std::unique_ptr<uint32_t[]> order_;      // sorted position to row
  std::unique_ptr<uint32_t[]> positions_;  // row to sorted position
  uint32_t rows_ = 0;
  uint32_t room_ = 0;  // rows that there is memory for
  uint32_t columns_ = 0;
  uint32_t sortKey_ = 0;
};

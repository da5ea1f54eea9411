// Marlux 3. What a string grid shows: its owner answers these questions, the grid keeps no text of its own.
//
// Records count from 0, as the owner's list does. (The grid's own "rows" count the title row as 0, so that record 0 is
// row 1: TmyStringGrid::RowOf and RecordOf convert.) The grid asks only about what it is about to draw.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

// The text of one cell, filled in place: drawing allocates nothing.
struct TmyCellText {
  static constexpr uint32_t kCapacity = 260;

  char text[kCapacity];
  uint32_t length = 0;
  bool secondary = false;  // drawn in the secondary colour

  void Set(std::string_view value) noexcept {  // what is longer than the buffer is cut
    length = static_cast<uint32_t>(value.size() < kCapacity ? value.size() : kCapacity);
    std::memcpy(text, value.data(), length);
  }
  [[nodiscard]] std::string_view View() const noexcept { return {text, length < kCapacity ? length : kCapacity}; }
};

class TmyGridModel {
 public:
  [[nodiscard]] virtual uint32_t RowCount() const = 0;  // records, without the title row
  // `text` comes empty. A record at or above RowCount() is never asked for.
  virtual void CellText(uint32_t record, uint32_t column, TmyCellText& text) const = 0;
  [[nodiscard]] virtual bool IsMarked(uint32_t record) const;       // false
  [[nodiscard]] virtual bool IsHighlighted(uint32_t record) const;  // false; true draws it bold in the record colour
  [[nodiscard]] virtual const char* EmptyText() const;              // why there is no row; "" at first

 protected:
  ~TmyGridModel() = default;  // the grid never owns its model
};

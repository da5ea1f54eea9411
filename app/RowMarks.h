// Marlux 3. Which records of a grid are marked, and what clicks do to the marks.
//
// Marks and the anchor belong to records: they outlast filtering and sorting, and Clear must be called before records
// are freed. Rows are the grid's: row 1 is the first record of the list shown, row 0 the titles.
#pragma once

#include "app/PointerSet.h"
#include "foundation/TmyList.h"

enum class ClickKind : uint8_t { kPlain, kControl, kShift };

class RowMarks {
 public:
  static constexpr uint32_t kNoRow = 0;

  // Plain: clears all marks. Control: marks or unmarks the record; while exactly one other record is marked that mark
  // is cleared first, so that the mark moves. Shift: marks the rows from the anchor to this one.
  // Plain and control make the clicked record the anchor; shift does so when there is none in the list.
  // False when the row shows no record: nothing changes.
  bool Click(const TmyList& shown, uint32_t row, ClickKind kind);

  void Clear() noexcept;  // marks and anchor
  // Unmarks what is not in the list: what the user sees marked is all that is.
  void KeepOnly(const TmyList& shown);
  [[nodiscard]] bool IsMarked(const void* record) const noexcept { return marked_.Contains(record); }
  [[nodiscard]] uint32_t Count() const noexcept { return marked_.Count(); }
  [[nodiscard]] const void* AnchorRecord() const noexcept { return anchor_; }  // null without an anchor
  // As of the last click; after filtering or sorting the next click finds the record again.
  [[nodiscard]] uint32_t AnchorRow() const noexcept { return anchorRow_; }

 private:
  void SetAnchor(const void* record, uint32_t row) noexcept;
  void FindAnchor(const TmyList& shown) noexcept;
  void ClickWithControl(const void* record);
  void MarkFromAnchor(const TmyList& shown, uint32_t row);

  PointerSet marked_;
  const void* anchor_ = nullptr;  // the database owns it
  uint32_t anchorRow_ = kNoRow;
};

#include "app/RowMarks.h"

#include <algorithm>
#include <utility>

namespace {

const void* RecordAt(const TmyList& shown, uint32_t row) noexcept {
  return row == RowMarks::kNoRow ? nullptr : shown.Get(row - 1);
}

}  // namespace

bool RowMarks::Click(const TmyList& shown, uint32_t row, ClickKind kind) {
  const void* record = RecordAt(shown, row);
  if (!record) return false;
  switch (kind) {
    case ClickKind::kPlain:
      marked_.Clear();
      break;
    case ClickKind::kControl:
      ClickWithControl(record);
      break;
    case ClickKind::kShift:
      MarkFromAnchor(shown, row);
      return true;
  }
  SetAnchor(record, row);
  return true;
}

void RowMarks::Clear() noexcept {
  marked_.Clear();
  SetAnchor(nullptr, kNoRow);
}

void RowMarks::KeepOnly(const TmyList& shown) {
  if (marked_.Count() == 0) return;
  PointerSet kept;
  for (uint32_t i = 0; i < shown.Count(); ++i) {
    if (marked_.Contains(shown.Get(i))) kept.Insert(shown.Get(i));
  }
  marked_ = std::move(kept);
}

void RowMarks::SetAnchor(const void* record, uint32_t row) noexcept {
  anchor_ = record;
  anchorRow_ = row;
}

// The list may have been filtered or sorted since the anchor was set.
void RowMarks::FindAnchor(const TmyList& shown) noexcept {
  if (!anchor_ || RecordAt(shown, anchorRow_) == anchor_) return;
  const int32_t index = shown.IndexOf(anchor_);
  if (index < 0) {
    SetAnchor(nullptr, kNoRow);
  } else {
    anchorRow_ = static_cast<uint32_t>(index) + 1;
  }
}

void RowMarks::ClickWithControl(const void* record) {
  if (marked_.Erase(record)) return;
  if (marked_.Count() == 1) marked_.Clear();
  marked_.Insert(record);
}

void RowMarks::MarkFromAnchor(const TmyList& shown, uint32_t row) {
  FindAnchor(shown);
  if (!anchor_) SetAnchor(RecordAt(shown, row), row);
  const auto [first, last] = std::minmax(anchorRow_, row);
  for (uint32_t each = first; each <= last; ++each) marked_.Insert(RecordAt(shown, each));
}

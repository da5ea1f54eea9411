// TmyStringGrid's handling of mouse and keyboard. An event is raised as the last thing: its handler may destroy the
// grid.
#include <algorithm>
#include <cstdlib>

#include "toolkit/ListKeys.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyStringGrid.h"

namespace {

using GridGeometry::Hit;
using GridGeometry::Part;

constexpr int kDragDistance = 6;  // from which on a pressed title is dragged, at 96 dpi
constexpr uintptr_t kScrollTimer = 1;
constexpr UINT kScrollMilliseconds = 60;

bool IsDown(int key) {
  return GetKeyState(key) < 0;
}

}  // namespace

Hit TmyStringGrid::HitAt(int x, int y) const {
  return GridGeometry::HitTest(layout_, x, y, Theme().Scaled(4));
}

void TmyStringGrid::Click(uint32_t record, bool shift, bool control) {
  // Not scrolled into view: the second click of a double click would meet another row.
  SetCurrentRow(RowOf(record), false);
  rowClicked(TmyRowClick{RowOf(record), shift, control});
}

void TmyStringGrid::MouseDown(uint32_t keys, int x, int y) {
  EndPress();
  press_ = HitAt(x, y);
  dragFrom_ = x;
  plainPress_ = (keys & (MK_SHIFT | MK_CONTROL)) == 0;
  if (press_.part == Part::kBorder) {
    dragging_ = true;
    widthBefore_ = widths_[press_.column];
  } else if (press_.part == Part::kTitle && HasLiveTitles()) {
    state_.pressedTitle = state_.hotTitle = press_.column;
    grip_ = x - static_cast<int>(GridGeometry::ColumnStrip(layout_, static_cast<uint32_t>(press_.column)).left);
    RepaintTitles();
  } else if (press_.part == Part::kRecord) {
    Click(press_.record, (keys & MK_SHIFT) != 0, (keys & MK_CONTROL) != 0);
  }
}

// By the way of the cursor, not by its place: a narrower column may scroll the grid under the cursor.
void TmyStringGrid::DragBorder(int x) {
  const int width = GridGeometry::DrawnWidth(widthBefore_) + x - dragFrom_;
  SetColumnWidth(static_cast<uint32_t>(press_.column), GridGeometry::DrawnWidth(width));
  markers_.ShowBorder(*this, layout_, static_cast<uint32_t>(press_.column));
}

void TmyStringGrid::MouseMove(uint32_t keys, int x, int y) {
  if ((keys & MK_LBUTTON) == 0) {  // perhaps the button went up where we could not see it
    if (dragging_) return EndDrag();
    EndPress();
  }
  if (dragging_) return DragBorder(x);
  if (movable_ && state_.pressedTitle != GridGeometry::kNoColumn && !moving_) {
    moving_ = std::abs(x - dragFrom_) > Theme().Scaled(kDragDistance);
  }
  if (moving_) return DragTitle(x);
  const Hit hit = HitAt(x, y);
  const int title = hit.part == Part::kTitle && HasLiveTitles() ? hit.column : GridGeometry::kNoColumn;
  const bool other = state_.pressedTitle != GridGeometry::kNoColumn && title != state_.pressedTitle;
  SetHotTitle(other ? GridGeometry::kNoColumn : title);
}

void TmyStringGrid::MouseUp(uint32_t, int x, int y) {
  const int title = state_.pressedTitle;
  if (dragging_) {
    if (x != dragFrom_) DragBorder(x);
    return EndDrag();
  }
  if (moving_) return DropTitle(x);
  EndPress();
  const Hit hit = HitAt(x, y);
  if (title != GridGeometry::kNoColumn && hit.part == Part::kTitle && hit.column == title) titleClicked(title);
}

void TmyStringGrid::EndDrag() {
  dragging_ = false;
  markers_.Hide();
  if (widths_[press_.column] != widthBefore_) columnResized(press_.column);
}

void TmyStringGrid::EndPress() {
  dragging_ = false;
  moving_ = false;
  markers_.Hide();
  if (state_.pressedTitle == GridGeometry::kNoColumn) return;
  KillTimer(Handle(), kScrollTimer);
  state_.pressedTitle = GridGeometry::kNoColumn;
  RepaintTitles();
}

// The cursor held beside the grid scrolls it, again and again.
void TmyStringGrid::DragTitle(int x) {
  const int beyond = x < layout_.area.left ? -1 : x >= layout_.area.right ? 1 : 0;
  if (beyond != 0) {
    SetTimer(Handle(), kScrollTimer, kScrollMilliseconds, nullptr);
    horizontal_->ScrollBy(int64_t{beyond} * layout_.rowHeight);
  } else {
    KillTimer(Handle(), kScrollTimer);
  }
  SetHotTitle(state_.pressedTitle);
  markers_.ShowTitle(*this, layout_, columns_[press_.column].title, static_cast<uint32_t>(press_.column), x - grip_,
                     GridGeometry::GapAt(layout_, x));
}

void TmyStringGrid::Timer(uintptr_t id) {
  if (id != kScrollTimer) return;
  POINT at = {};
  GetCursorPos(&at);
  ScreenToClient(Handle(), &at);
  if (moving_ && GetCapture() == Handle()) return DragTitle(at.x);
  EndPress();
}

void TmyStringGrid::DropTitle(int x) {
  const auto from = static_cast<uint32_t>(press_.column);
  const uint32_t to = GridGeometry::PlaceInGap(from, GridGeometry::GapAt(layout_, x));
  EndPress();
  if (to == from) return;
  MoveColumn(from, to);
  columnMoved(from, to);
}

void TmyStringGrid::MoveColumn(uint32_t from, uint32_t to) {
  const auto rotate = [=](auto* items) {
    if (from < to) {
      std::rotate(items + from, items + from + 1, items + to + 1);
    } else {
      std::rotate(items + to, items + from, items + from + 1);
    }
  };
  rotate(columns_);
  rotate(widths_);
  state_.sortColumn = GridGeometry::PlaceAfterMove(state_.sortColumn, from, to);
  state_.hotTitle = GridGeometry::kNoColumn;
  Repaint();
}

bool TmyStringGrid::CancelDrag() {
  if (!dragging_ && !moving_) return false;
  if (dragging_) SetColumnWidth(static_cast<uint32_t>(press_.column), widthBefore_);
  press_ = {};
  EndPress();
  return true;
}

void TmyStringGrid::SetHotTitle(int column) {
  if (state_.hotTitle == column) return;
  state_.hotTitle = column;
  RepaintTitles();
}

void TmyStringGrid::DoubleClick(int, int) {
  if (press_.part == Part::kBorder && static_cast<uint32_t>(press_.column) < layout_.columns) {
    const int column = press_.column;
    FitColumn(static_cast<uint32_t>(column));
    columnResized(column);
  } else if (press_.part == Part::kRecord && plainPress_ && press_.record == current_) {
    rowActivated(CurrentRow());
  }
}

void TmyStringGrid::RightButtonDown(uint32_t, int x, int y) {
  TakeFocus();
  if (!IsAlive()) return;
  const Hit hit = HitAt(x, y);
  if (hit.part == Part::kRecord) SetCurrentRow(RowOf(hit.record), false);
}

void TmyStringGrid::ContextMenu(int x, int y) {
  POINT at = {x, y};
  if (x == -1 && y == -1) {  // from the keyboard
    if (CurrentRow() == kNoRow) return;
    SetCurrentRow(CurrentRow(), true);
    const RECT strip = GridGeometry::RecordStrip(layout_, current_);
    at = {strip.left + layout_.rowHeight, strip.bottom};
    ClientToScreen(Handle(), &at);
  } else {
    POINT inside = at;
    ScreenToClient(Handle(), &inside);
    const Hit hit = HitAt(inside.x, inside.y);
    if (hit.part != Part::kRecord) return;
    SetCurrentRow(RowOf(hit.record), false);
  }
  rowContext(CurrentRow(), at.x, at.y);
}

void TmyStringGrid::MouseWheel(WPARAM keysAndNotches, TmyComponent* source) {
  const bool sideways = (LOWORD(keysAndNotches) & MK_SHIFT) != 0;
  TmyScrollBar& bar = sideways ? *horizontal_ : *vertical_;
  if (!bar.CanScroll()) return TmyComponent::MouseWheel(keysAndNotches, source);
  bar.ScrollByNotches(static_cast<int16_t>(HIWORD(keysAndNotches)));
}

bool TmyStringGrid::MoveByKey(uint32_t key) {
  uint32_t after = 0;
  if (!GridGeometry::RecordAfterKey(layout_, key, current_, after)) return false;
  const bool moved = after != current_;
  SetCurrentRow(RowOf(after), true);
  if (!moved) return true;
  IsDown(VK_SHIFT) ? rowClicked(TmyRowClick{CurrentRow(), true, false, true}) : currentMoved(CurrentRow());
  return true;
}

bool TmyStringGrid::ActOnCurrent(uint32_t key) {
  if (key != VK_RETURN && key != VK_SPACE) return false;
  if (CurrentRow() == kNoRow) return false;
  SetCurrentRow(CurrentRow(), true);
  if (key == VK_RETURN) {
    rowActivated(CurrentRow());
  } else {
    Click(current_, IsDown(VK_SHIFT), IsDown(VK_CONTROL));
  }
  return true;
}

bool TmyStringGrid::KeyDown(uint32_t key, LPARAM flags) {
  if (ListKeys::IsWithAlt(flags)) return TmyComponent::KeyDown(key, flags);
  if (key == VK_LEFT || key == VK_RIGHT) {
    const int64_t step = int64_t{GridGeometry::kMinWidth} * 3;
    horizontal_->ScrollBy(key == VK_LEFT ? -step : step);
    return true;
  }
  if (key >= '0' && key <= '9' && IsDown(VK_CONTROL) && titleClicked.IsBound()) {
    const uint32_t column = key == '0' ? 9 : key - '1';
    if (column < layout_.columns && !ListKeys::IsRepeated(flags)) titleClicked(static_cast<int>(column));
    return true;
  }
  // A key held down activates once.
  if ((key == VK_RETURN || key == VK_SPACE) && ListKeys::IsRepeated(flags)) return true;
  return ActOnCurrent(key) || MoveByKey(key) || TmyComponent::KeyDown(key, flags);
}

HCURSOR TmyStringGrid::GetCursor() const {
  POINT at = {};
  GetCursorPos(&at);
  ScreenToClient(Handle(), &at);
  const bool onBorder = dragging_ || HitAt(at.x, at.y).part == Part::kBorder;
  return onBorder ? LoadCursorA(nullptr, IDC_SIZEWE) : TmyComponent::GetCursor();
}

LRESULT TmyStringGrid::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_MOUSELEAVE) SetHotTitle(GridGeometry::kNoColumn);
  // Somebody took the mouse while the button is held. (Our own release comes with the button up.)
  if (message == WM_CAPTURECHANGED && IsDown(VK_LBUTTON)) CancelDrag();
  // The dispatcher would also send it to the window, which it closes, as it would do with the key held any longer.
  if (message == WM_KEYDOWN && wParam == VK_ESCAPE && (CancelDrag() || ListKeys::IsRepeated(lParam))) return 0;
  if (message == WM_MOUSEHWHEEL && IsAlive()) {
    // Here positive notches turn to the right, which is away from the start.
    horizontal_->ScrollByNotches(-sideways_.Notches(GET_WHEEL_DELTA_WPARAM(wParam)));
    return 0;
  }
  return TmyComponent::WndProc(message, wParam, lParam);
}

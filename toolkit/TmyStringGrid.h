// Marlux 3. A grid of texts: titled columns with settable widths, rows that can be marked, one current row, scroll
// bars.
//
//   grid_ = new TmyStringGrid(*this);   // belongs to its window
//   grid_->SetColumns(kColumns, 8);
//   grid_->SetModel(this);              // a TmyGridModel that outlives the grid, or is taken away by SetModel(nullptr)
//   grid_->rowClicked.Bind<&ScheduleGrid::RowClicked>(this);
//   ...
//   grid_->RowsChanged();               // the model has other rows now; RepaintRows() when only their looks changed
//
// Rows and records: a row is counted with the title row, which is row 0; record 0 of the model is row 1. Row 0 as the
// current row stands for "none".
//
// Keys: arrows, Page, Home and End move the current row (with Shift they are shift-clicks), Left and Right scroll,
// Space clicks the current row (with Ctrl or Shift so), Enter activates it, Menu or Shift+F10 asks for its menu; Ctrl+1
// to Ctrl+9 click the title of that column, Ctrl+0 that of the tenth.
// Mouse: a border of the title row is dragged or double-clicked (fits), a title is clicked or, where columns are
// movable, dragged to another place; Escape while dragging leaves things as they were. The grid marks nothing by
// itself: clicks are events, marks are the model's.
#pragma once

#include "toolkit/GridGeometry.h"
#include "toolkit/GridMarkers.h"
#include "toolkit/GridPainter.h"
#include "toolkit/TmyGridModel.h"
#include "toolkit/TmyScrollBar.h"
#include "toolkit/WheelTurn.h"
#include "toolkit/myComponents.h"

struct TmyGridColumn {
  const char* title = "";  // copied
  int32_t width = 0;       // pixels; 0 keeps the width that this column has
  bool right = false;
};

struct TmyRowClick {
  uint32_t row = 0;
  bool shift = false;
  bool control = false;
  bool byKeyboard = false;  // a moving key with Shift, not a click
};

class TmyStringGrid : public TmyComponent {
 public:
  static constexpr uint32_t kMaxColumns = GridGeometry::kMaxColumns;
  static constexpr uint32_t kNoRow = 0;
  static constexpr int kDefaultWidth = 68;  // at 96 dpi, of each of the columns

  explicit TmyStringGrid(TmyComponent& parent);  // invisible until Show(true)

  TmyEvent<int> titleClicked;               // column; released where it was pressed, or by a key
  TmyEvent<const TmyRowClick&> rowClicked;  // mouse down, Space or Shift with a moving key; the row is current already
  TmyEvent<uint32_t> rowActivated;          // double click or Enter
  TmyEvent<uint32_t, int, int> rowContext;  // row, screen x and y for its menu; the row is current already
  TmyEvent<uint32_t> currentMoved;          // by the keyboard without Shift, never by SetCurrentRow
  TmyEvent<int> columnResized;              // by the user, when it is done
  // The user dragged a title to another place: from and to. Title, width and sort arrow have moved already; what the
  // cells show is the model's.
  TmyEvent<uint32_t, uint32_t> columnMoved;

  [[nodiscard]] static constexpr uint32_t RowOf(uint32_t record) noexcept { return record + 1; }
  [[nodiscard]] static constexpr uint32_t RecordOf(uint32_t row) noexcept { return row - 1; }  // kNoRow: kNoRecord

  void SetColumns(const TmyGridColumn* columns, uint32_t count);  // beyond kMaxColumns they are left out
  [[nodiscard]] uint32_t ColumnCount() const noexcept { return layout_.columns; }
  // Widths in pixels for all kMaxColumns columns, shown or not, kept as they were set: a settings store reads and
  // writes them. Senseless ones are only drawn as sensible ones.
  [[nodiscard]] const int32_t* Widths() const noexcept { return widths_; }
  void SetWidths(const int32_t* widths, uint32_t count);
  [[nodiscard]] int32_t ColumnWidth(uint32_t column) const noexcept;  // as set; 0 beyond kMaxColumns
  void SetColumnWidth(uint32_t column, int32_t width);
  void ScaleWidths(int multiplier, int divisor);  // all of them, also of columns that are not shown
  void SetColumnsMovable(bool movable) noexcept { movable_ = movable; }  // by dragging their titles; off at first
  void FitColumn(uint32_t column);                                       // to its title and the texts in view
  [[nodiscard]] int ColumnsRight() const noexcept;  // right edge of the last column, when nothing is scrolled

  void SetModel(const TmyGridModel* model);
  void RowsChanged();  // keeps the scroll position and the current row as far as they are still valid
  void RepaintRow(uint32_t row);
  void RepaintRows();
  [[nodiscard]] uint32_t RowCount() const noexcept { return RowOf(layout_.records); }  // the title row included

  [[nodiscard]] uint32_t CurrentRow() const noexcept { return RowOf(current_); }
  void SetCurrentRow(uint32_t row, bool bringIntoView);  // kNoRow or a row that does not exist: none
  [[nodiscard]] uint32_t TopRow() const noexcept { return RowOf(layout_.top); }
  void SetTopRow(uint32_t row);
  void SetSort(int column, bool ascending);  // the arrow in the title; column -1: none
  [[nodiscard]] int SortColumn() const noexcept { return state_.sortColumn; }
  [[nodiscard]] const GridGeometry::Layout& Layout() const noexcept { return layout_; }

  void Paint(HDC dc) override;
  LRESULT EraseBackground(HDC dc) override;
  void Resized() override;
  void MouseDown(uint32_t keys, int x, int y) override;
  void MouseMove(uint32_t keys, int x, int y) override;
  void MouseUp(uint32_t keys, int x, int y) override;
  void DoubleClick(int x, int y) override;
  void RightButtonDown(uint32_t keys, int x, int y) override;
  void ContextMenu(int x, int y) override;
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;
  void FocusChanged(bool focused) override;
  void EnabledChanged() override;
  void ThemeChanged() override;
  void Timer(uintptr_t id) override;
  [[nodiscard]] HCURSOR GetCursor() const override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void MeasureFont();
  void UpdateLayout();
  void PlaceBar(TmyScrollBar& bar, bool shown, const RECT& place);
  void ScrollPositionsChanged();
  void BarScrolled(TmyScrollBar& bar);
  void RepaintTitles();

  // In GridInput.cpp, as the handlers of mouse and keyboard.
  [[nodiscard]] GridGeometry::Hit HitAt(int x, int y) const;
  void Click(uint32_t record, bool shift, bool control);
  bool MoveByKey(uint32_t key);
  bool ActOnCurrent(uint32_t key);
  void DragBorder(int x);
  void EndDrag();
  void EndPress();
  void DragTitle(int x);
  void DropTitle(int x);
  void MoveColumn(uint32_t from, uint32_t to);
  bool CancelDrag();  // false: nothing is dragged
  void SetHotTitle(int column);
  [[nodiscard]] bool HasLiveTitles() const noexcept { return movable_ || titleClicked.IsBound(); }

  GridGeometry::Layout layout_;
  GridState state_;
  GridColumn columns_[kMaxColumns];
  int32_t widths_[kMaxColumns];
  uint32_t current_ = GridGeometry::kNoRecord;
  TmyScrollBar* vertical_ = nullptr;    // both belong to their windows; they hold the scroll positions, in records
  TmyScrollBar* horizontal_ = nullptr;  // and in pixels

  WheelTurn sideways_;
  GridGeometry::Hit press_;  // where the left button went down last
  bool plainPress_ = false;  // without Shift and Ctrl
  bool dragging_ = false;    // the border of press_.column
  bool moving_ = false;      // the title of press_.column
  bool movable_ = false;
  int dragFrom_ = 0;         // x where the drag began
  int grip_ = 0;             // from the title's left edge to there
  int32_t widthBefore_ = 0;  // of that column, as stored
  GridMarkers markers_;
};

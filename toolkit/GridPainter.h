// Marlux 3. Draws a string grid: title row, records, frame. Only what the context's clip box touches is drawn, and only
// records that are shown are asked of the model, so the cost does not grow with the number of records.
#pragma once

#include "foundation/TmyString.h"
#include "toolkit/GridGeometry.h"
#include "toolkit/TmyGridModel.h"
#include "toolkit/TmyTheme.h"

// A column as it is drawn; its width lies with the layout.
struct GridColumn {
  TmyString title;
  bool right = false;  // texts and title stand at the right
};

// Everything that the picture depends on, besides the layout.
struct GridState {
  const TmyGridModel* model = nullptr;  // not owned; null draws no records
  const GridColumn* columns = nullptr;  // as many as the layout has; not owned
  uint32_t current = GridGeometry::kNoRecord;
  int sortColumn = GridGeometry::kNoColumn;
  int hotTitle = GridGeometry::kNoColumn;      // under the cursor
  int pressedTitle = GridGeometry::kNoColumn;  // held down
  bool ascending = true;
  bool focused = false;
  bool enabled = true;
};

class GridPainter {
 public:
  // All references and the font must outlive the painter, which lives for one picture.
  GridPainter(HDC dc, const GridGeometry::Layout& layout, const GridState& state, const TmyTheme& theme, HFONT font);

  void Paint(int clientWidth, int clientHeight);

  // The width that shows a column's title, with room for the sort arrow, and the texts of its shown records uncut.
  [[nodiscard]] int FittingWidth(uint32_t column) const;

 private:
  struct RowLook {
    COLORREF back, text, secondary, line;
    HFONT font;
  };

  void PaintTitles(int clientWidth);
  void PaintTitle(uint32_t column);
  void PaintArrow(RECT& text, uint32_t column);
  void PaintRecords();
  void PaintRecord(uint32_t record);
  void PaintCells(uint32_t record, const RECT& strip, const RowLook& look);
  void PaintEmptyText();
  void PaintFrame(int clientWidth, int clientHeight);
  [[nodiscard]] RowLook LookOf(uint32_t record) const;
  [[nodiscard]] RowLook LookOfCurrent(RowLook look) const;
  [[nodiscard]] RECT Padded(RECT cell) const;

  HDC dc_;
  const GridGeometry::Layout& layout_;
  const GridState& state_;
  const TmyTheme& theme_;
  const TmyTheme::Colors& color_;
  HFONT font_;  // not owned
  RECT dirty_ = {};
  uint32_t records_;  // what may be asked of the model: it may have shrunk since the layout was made
};

#include "toolkit/GridPainter.h"

#include <algorithm>

#include "toolkit/ThemeDraw.h"

namespace {

bool Touches(const RECT& a, const RECT& b) {
  RECT common;
  return IntersectRect(&common, &a, &b) != FALSE;
}

int WidthOf(HDC dc, std::string_view text) {
  SIZE size = {};
  GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

constexpr int kPadding = 7;  // beside a cell's text, at 96 dpi as the other two
constexpr int kArrowWidth = 8;
constexpr int kArrowHeight = 5;

}  // namespace

GridPainter::GridPainter(HDC dc, const GridGeometry::Layout& layout, const GridState& state, const TmyTheme& theme,
                         HFONT font)
    : dc_(dc),
      layout_(layout),
      state_(state),
      theme_(theme),
      color_(theme.Color()),
      font_(font),
      records_(state.model ? std::min(layout.records, state.model->RowCount()) : 0) {}

void GridPainter::Paint(int clientWidth, int clientHeight) {
  GetClipBox(dc_, &dirty_);
  const RECT all = {0, 0, clientWidth, clientHeight};
  if (!IntersectRect(&dirty_, &dirty_, &all)) return;
  const RECT corner = {layout_.area.right, layout_.area.bottom, clientWidth, clientHeight};
  if (Touches(dirty_, corner)) ThemeDraw::Fill(dc_, corner, color_.surface);
  {
    const SavedDc saved(dc_);
    IntersectClipRect(dc_, layout_.area.left, layout_.area.top, layout_.area.right, layout_.area.bottom);
    PaintRecords();
  }
  if (dirty_.top < GridGeometry::TitleRow(layout_).bottom) PaintTitles(clientWidth);
  PaintFrame(clientWidth, clientHeight);
}

RECT GridPainter::Padded(RECT cell) const {
  cell.left += theme_.Scaled(kPadding);
  cell.right -= theme_.Scaled(kPadding) + 1;  // one pixel is the line between the columns
  return cell;
}

// The band goes on above the vertical scroll bar.
void GridPainter::PaintTitles(int clientWidth) {
  RECT band = GridGeometry::TitleRow(layout_);
  band.right = clientWidth;
  ThemeDraw::Fill(dc_, band, color_.header);
  {
    const SavedDc saved(dc_);
    IntersectClipRect(dc_, layout_.area.left, band.top, layout_.area.right, band.bottom);
    for (uint32_t column = 0; column < layout_.columns; ++column) PaintTitle(column);
  }
  ThemeDraw::Fill(dc_, {band.left, band.bottom - 1, band.right, band.bottom}, color_.line);
  ThemeDraw::Fill(dc_, {layout_.area.right, band.top, layout_.area.right + 1, band.bottom}, color_.line);
}

void GridPainter::PaintTitle(uint32_t column) {
  RECT cell = GridGeometry::ColumnStrip(layout_, column);
  cell.bottom = GridGeometry::TitleRow(layout_).bottom - 1;
  if (!Touches(cell, dirty_)) return;
  const int index = static_cast<int>(column);
  const bool hot = index == state_.hotTitle && state_.enabled;
  if (index == state_.pressedTitle && hot) {
    ThemeDraw::Fill(dc_, cell, color_.pressed);
  } else if (hot) {
    ThemeDraw::Fill(dc_, cell, color_.hot);
  }
  ThemeDraw::Fill(dc_, {cell.right - 1, cell.top, cell.right, cell.bottom}, color_.line);
  RECT text = Padded(cell);
  if (index == state_.sortColumn) PaintArrow(text, column);
  const GridColumn& title = state_.columns[column];
  if (text.right <= text.left) return;
  ThemeDraw::Text(dc_, text, title.title.View(), state_.enabled ? color_.text : color_.disabled,
                  theme_.Get(TmyTheme::Font::kBold), title.right ? DT_RIGHT : DT_LEFT);
}

// Behind the title's text; `text` is narrowed by the arrow's room.
void GridPainter::PaintArrow(RECT& text, uint32_t column) {
  constexpr int kUnits = ThemeDraw::kUnits;
  const int width = theme_.Scaled(kArrowWidth), height = theme_.Scaled(kArrowHeight), gap = theme_.Scaled(5);
  const GridColumn& title = state_.columns[column];
  const int textWidth = theme_.TextWidth(title.title.View(), TmyTheme::Font::kBold);
  int right = text.right;
  if (!title.right) right = std::min<int>(right, text.left + textWidth + gap + width);
  text.right = right - width - gap;
  const int top = ((text.top + text.bottom) - height) * kUnits / 2, bottom = top + height * kUnits;
  const int tip = state_.ascending ? top : bottom, base = state_.ascending ? bottom : top;
  const POINT points[] = {
      {(right - width) * kUnits, base}, {right * kUnits, base}, {(2 * right - width) * kUnits / 2, tip}};
  ThemeDraw::Polygon(dc_, points, 3, state_.enabled ? color_.accent : color_.disabled);
}

void GridPainter::PaintRecords() {
  const GridGeometry::RecordRange shown = GridGeometry::RecordsIn(layout_, dirty_);
  for (uint32_t record = shown.first; record < std::min(shown.end, records_); ++record) PaintRecord(record);
  RECT rest = GridGeometry::RecordsArea(layout_);
  const GridGeometry::RecordRange all = GridGeometry::ShownRecords(layout_);
  const uint32_t end = std::min(all.end, records_);
  if (end > all.first) rest.top = GridGeometry::RecordStrip(layout_, end - 1).bottom;
  if (rest.top < rest.bottom && Touches(rest, dirty_)) ThemeDraw::Fill(dc_, rest, color_.field);
  if (records_ == 0) PaintEmptyText();
}

GridPainter::RowLook GridPainter::LookOf(uint32_t record) const {
  RowLook look = {};
  look.back = record % 2 != 0 ? color_.alternateRow : color_.field;
  look.text = color_.text;
  look.secondary = color_.secondary;
  look.font = font_;
  if (state_.model->IsMarked(record)) look.back = color_.marked;
  if (state_.model->IsHighlighted(record)) {
    look.font = theme_.Get(TmyTheme::Font::kBold);
    look.text = look.secondary = color_.record;
  }
  look.line = ThemeDraw::Mixed(color_.line, look.back, 55);
  if (record == state_.current) look = LookOfCurrent(look);
  if (!state_.enabled) look.text = look.secondary = color_.disabled;
  return look;
}

GridPainter::RowLook GridPainter::LookOfCurrent(RowLook look) const {
  if (!state_.enabled) {
    look.back = color_.line;
  } else if (state_.focused || theme_.IsHighContrast()) {
    look.back = color_.accent;
    look.text = look.secondary = color_.accentText;
  } else {
    look.back = ThemeDraw::Mixed(color_.accent, color_.field, 40);
    if (look.text == color_.text) look.secondary = color_.text;
  }
  look.line = ThemeDraw::Mixed(color_.accentText, look.back, 25);
  return look;
}

void GridPainter::PaintRecord(uint32_t record) {
  const RowLook look = LookOf(record);
  RECT strip = GridGeometry::RecordStrip(layout_, record);
  ThemeDraw::Fill(dc_, strip, look.back);
  // Texts of a row that is cut at the bottom stand where they stand when it is not.
  strip.bottom = strip.top + layout_.rowHeight;
  PaintCells(record, strip, look);
  // A bar beside the marked rows: the colour alone would not show that the current row is marked too.
  if (!state_.model->IsMarked(record)) return;
  const bool dark = record == state_.current && look.back == color_.accent;
  ThemeDraw::Fill(dc_, {strip.left, strip.top, strip.left + theme_.Scaled(3), strip.bottom},
                  dark ? color_.accentText : color_.accent);
}

void GridPainter::PaintCells(uint32_t record, const RECT& strip, const RowLook& look) {
  TmyCellText cell;
  for (uint32_t column = 0; column < layout_.columns; ++column) {
    RECT area = GridGeometry::ColumnStrip(layout_, column);
    area.top = strip.top;
    area.bottom = strip.bottom;
    if (!Touches(area, dirty_) || area.left >= layout_.area.right) continue;
    ThemeDraw::Fill(dc_, {area.right - 1, area.top, area.right, area.bottom}, look.line);
    cell.length = 0;
    cell.secondary = false;
    state_.model->CellText(record, column, cell);
    const RECT text = Padded(area);
    if (cell.length == 0 || text.right <= text.left) continue;
    ThemeDraw::Text(dc_, text, cell.View(), cell.secondary ? look.secondary : look.text, look.font,
                    state_.columns[column].right ? DT_RIGHT : DT_LEFT);
  }
}

void GridPainter::PaintEmptyText() {
  if (!state_.model) return;
  RECT area = GridGeometry::RecordsArea(layout_);
  InflateRect(&area, -theme_.Step(), 0);
  if (area.right <= area.left || area.bottom - area.top < layout_.rowHeight) return;
  ThemeDraw::Text(dc_, area, state_.model->EmptyText(), state_.enabled ? color_.secondary : color_.disabled, font_,
                  DT_CENTER);
}

// Also when the focus is elsewhere, then in the colour of lines, so that nothing moves when it comes.
void GridPainter::PaintFrame(int clientWidth, int clientHeight) {
  const bool focused = state_.focused && state_.enabled;
  ThemeDraw::Frame(dc_, {0, 0, clientWidth, clientHeight}, focused ? color_.accent : color_.line);
}

int GridPainter::FittingWidth(uint32_t column) const {
  int width = theme_.TextWidth(state_.columns[column].title.View(), TmyTheme::Font::kBold) +
              theme_.Scaled(kArrowWidth) + theme_.Scaled(5);
  const GridGeometry::RecordRange shown = GridGeometry::ShownRecords(layout_);
  TmyCellText cell;
  for (uint32_t record = shown.first; record < std::min(shown.end, records_); ++record) {
    cell.length = 0;
    state_.model->CellText(record, column, cell);
    const Selected font(dc_, state_.model->IsHighlighted(record) ? theme_.Get(TmyTheme::Font::kBold) : font_);
    width = std::max(width, WidthOf(dc_, cell.View()));
  }
  return width + 2 * theme_.Scaled(kPadding) + 1;
}

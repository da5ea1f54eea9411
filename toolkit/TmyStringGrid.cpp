#include "toolkit/TmyStringGrid.h"

#include <algorithm>

#include "toolkit/TmyApplication.h"

namespace {

// Letters of all heights: a row has room for each.
constexpr std::string_view kRowSample = "abiyqtlexW10";
constexpr int kRowMargin = 4;

}  // namespace

TmyStringGrid::TmyStringGrid(TmyComponent& parent)
    : TmyComponent("", WS_CHILD | WS_TABSTOP | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0, 0, &parent) {
  SetDoubleBuffered(true);
  std::fill(std::begin(widths_), std::end(widths_), Theme().Scaled(kDefaultWidth));
  layout_.widths = widths_;
  state_.columns = columns_;
  vertical_ = new TmyScrollBar(*this, TmyScrollBar::Direction::kVertical);
  horizontal_ = new TmyScrollBar(*this, TmyScrollBar::Direction::kHorizontal);
  vertical_->scrolled.Bind<&TmyStringGrid::BarScrolled>(this);
  horizontal_->scrolled.Bind<&TmyStringGrid::BarScrolled>(this);
  MeasureFont();
  UpdateLayout();
}

void TmyStringGrid::MeasureFont() {
  const WindowDc dc(Handle());
  const Selected font(dc.Get(), Font());
  SIZE size = {};
  GetTextExtentPoint32A(dc.Get(), kRowSample.data(), static_cast<int>(kRowSample.size()), &size);
  layout_.rowHeight = std::max<int>(1, size.cy + kRowMargin);
  layout_.titleHeight = layout_.rowHeight + kRowMargin;
  horizontal_->SetLine(Theme().Scaled(20));
}

// Everything that lies inside the grid; called whenever one of the things it depends on changes.
void TmyStringGrid::UpdateLayout() {
  const int thickness = TmyScrollBar::Thickness();
  const GridGeometry::View view = GridGeometry::ViewOf(layout_, ClientWidth(), ClientHeight(), thickness);
  layout_.area = view.area;
  const RECT records = GridGeometry::RecordsArea(layout_);
  PlaceBar(*vertical_, view.vertical, {records.right, records.top, records.right + thickness, records.bottom});
  PlaceBar(*horizontal_, view.horizontal, {records.left, records.bottom, records.right, records.bottom + thickness});
  vertical_->SetRange(layout_.records, GridGeometry::FullRecords(layout_));
  horizontal_->SetRange(GridGeometry::ColumnsWidth(layout_), records.right - records.left);
  ScrollPositionsChanged();
  Repaint();
}

void TmyStringGrid::PlaceBar(TmyScrollBar& bar, bool shown, const RECT& place) {
  if (shown) bar.SetBounds(place.left, place.top, place.right - place.left, place.bottom - place.top);
  if (shown != bar.IsVisible()) bar.Show(shown);
}

void TmyStringGrid::ScrollPositionsChanged() {
  layout_.top = static_cast<uint32_t>(vertical_->Position());
  layout_.scrollX = static_cast<int>(horizontal_->Position());
}

void TmyStringGrid::BarScrolled(TmyScrollBar& bar) {
  ScrollPositionsChanged();
  &bar == vertical_ ? RepaintRows() : Repaint();
}

void TmyStringGrid::SetColumns(const TmyGridColumn* columns, uint32_t count) {
  layout_.columns = std::min(count, kMaxColumns);
  for (uint32_t i = 0; i < layout_.columns; ++i) {
    columns_[i].title = columns[i].title;
    columns_[i].right = columns[i].right;
    if (columns[i].width != 0) widths_[i] = columns[i].width;
  }
  EndPress();  // what was pressed may be gone
  state_.hotTitle = GridGeometry::kNoColumn;
  UpdateLayout();
}

void TmyStringGrid::SetWidths(const int32_t* widths, uint32_t count) {
  std::copy_n(widths, std::min(count, kMaxColumns), widths_);
  UpdateLayout();
}

int32_t TmyStringGrid::ColumnWidth(uint32_t column) const noexcept {
  return column < kMaxColumns ? widths_[column] : 0;
}

void TmyStringGrid::SetColumnWidth(uint32_t column, int32_t width) {
  if (column >= kMaxColumns || widths_[column] == width) return;
  widths_[column] = width;
  UpdateLayout();
}

void TmyStringGrid::ScaleWidths(int multiplier, int divisor) {
  if (multiplier == divisor || divisor == 0) return;
  for (int32_t& width : widths_) width = MulDiv(width, multiplier, divisor);
  UpdateLayout();
}

void TmyStringGrid::FitColumn(uint32_t column) {
  if (column >= layout_.columns) return;
  const WindowDc dc(Handle());
  const int width = GridPainter(dc.Get(), layout_, state_, Theme(), Font()).FittingWidth(column);
  SetColumnWidth(column, GridGeometry::DrawnWidth(width));
}

int TmyStringGrid::ColumnsRight() const noexcept {
  return layout_.area.left + GridGeometry::ColumnsWidth(layout_);
}

void TmyStringGrid::SetModel(const TmyGridModel* model) {
  state_.model = model;
  RowsChanged();
}

void TmyStringGrid::RowsChanged() {
  // One number is kept free: the row of the last record must still be a number.
  layout_.records = state_.model ? std::min(state_.model->RowCount(), GridGeometry::kNoRecord - 1) : 0;
  if (current_ != GridGeometry::kNoRecord && current_ >= layout_.records) current_ = RecordOf(layout_.records);
  UpdateLayout();
}

void TmyStringGrid::RepaintRow(uint32_t row) {
  const RECT strip = GridGeometry::RecordStrip(layout_, RecordOf(row));
  if (IsAlive() && strip.right > strip.left) InvalidateRect(Handle(), &strip, FALSE);
}

void TmyStringGrid::RepaintRows() {
  const RECT records = GridGeometry::RecordsArea(layout_);
  if (IsAlive()) InvalidateRect(Handle(), &records, FALSE);
}

void TmyStringGrid::RepaintTitles() {
  const RECT titles = GridGeometry::TitleRow(layout_);
  if (IsAlive()) InvalidateRect(Handle(), &titles, FALSE);
}

void TmyStringGrid::SetCurrentRow(uint32_t row, bool bringIntoView) {
  const uint32_t record = RecordOf(row) < layout_.records ? RecordOf(row) : GridGeometry::kNoRecord;
  if (record != current_) {
    RepaintRow(RowOf(current_));
    current_ = record;
    RepaintRow(RowOf(current_));
  }
  if (bringIntoView && record != GridGeometry::kNoRecord) SetTopRow(RowOf(GridGeometry::TopFor(layout_, record)));
}

void TmyStringGrid::SetTopRow(uint32_t row) {
  const uint32_t before = layout_.top;
  vertical_->SetPosition(row == kNoRow ? 0 : RecordOf(row));
  ScrollPositionsChanged();
  if (layout_.top != before) RepaintRows();
}

void TmyStringGrid::SetSort(int column, bool ascending) {
  state_.sortColumn = column;
  state_.ascending = ascending;
  RepaintTitles();
}

void TmyStringGrid::Paint(HDC dc) {
  state_.current = current_;
  state_.enabled = IsEnabled();
  GridPainter(dc, layout_, state_, Theme(), Font()).Paint(ClientWidth(), ClientHeight());
}

LRESULT TmyStringGrid::EraseBackground(HDC) {
  return 1;
}  // Paint covers everything

void TmyStringGrid::Resized() {
  UpdateLayout();
}

void TmyStringGrid::FocusChanged(bool focused) {
  TmyComponent::FocusChanged(focused);
  state_.focused = focused;
  Repaint();
}

void TmyStringGrid::EnabledChanged() {
  EndPress();
  Repaint();
}

void TmyStringGrid::ThemeChanged() {
  TmyComponent::ThemeChanged();
  MeasureFont();
  UpdateLayout();
}

#include "app/DetailDialog.h"

#include <algorithm>

#include "toolkit/CentredPlace.h"
#include "toolkit/ClipboardText.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_TABSTOP | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_CONTROLPARENT;
constexpr int kCellMargin = 17;        // beside a cell's text, both sides together, at 96 dpi as all of these
constexpr int kLeastValueWidth = 200;  // so that a record of short texts is no narrow strip
constexpr int kMostValueWidth = 420;   // longer texts scroll
constexpr int kCascade = 24;           // from one open dialog to the next
constexpr uint32_t kSmallestRows = 3;  // that stay in view however small the window is made
constexpr TmyGridColumn kColumns[] = {{"Field"}, {"Value"}};

SIZE WithFrame(int width, int height) {
  RECT frame = {0, 0, width, height};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  return {frame.right - frame.left, frame.bottom - frame.top};
}

int OpenDialogs() {
  const TmyList& windows = TmyApplication::Get().Windows();
  int count = 0;
  for (uint32_t i = 0; i < windows.Count(); ++i) {
    const auto* window = static_cast<TmyWindowBase*>(windows.Get(i));
    const auto* dialog = dynamic_cast<const DetailDialog*>(window);
    if (dialog && dialog->IsVisible()) ++count;
  }
  return count;
}

}  // namespace

DetailDialog::DetailDialog(TmyComponent& owner)
    : TmyDialog("Item details", kStyle, kExtendedStyle, owner),
      grid_(new TmyStringGrid(*this)),
      close_(*this, "Close") {
  SetKeyPreview(true);
  grid_->SetColumns(kColumns, 2);
  grid_->columnResized.Bind<&DetailDialog::ColumnResized>(this);
  close_.clicked.Bind<&DetailDialog::CloseClicked>(this);
}

void DetailDialog::AddRow(const char* label, std::string_view value) {
  rows_.push_back({label, std::string(value)});
}

void DetailDialog::AddRange(const char* label, std::string_view from, std::string_view to) {
  std::string text;
  if (!from.empty() || !to.empty()) text.append("From ").append(from).append(" to ").append(to);
  AddRow(label, text);
}

void DetailDialog::RowsAdded(const TmyComponent& owner) {
  grid_->SetModel(this);
  MeasureColumns();
  PlaceCentred(owner, FittingSize(), OpenDialogs() % 10 * Theme().Scaled(kCascade));
  grid_->Show(true);
}

void DetailDialog::CellText(uint32_t record, uint32_t column, TmyCellText& text) const {
  const Row& row = rows_[record];
  text.Set(column == 0 ? row.label : row.value);
  text.secondary = column == 0;
}

void DetailDialog::MeasureColumns() {
  const int margin = Theme().Scaled(kCellMargin);
  labelWidth_ = Theme().TextWidth(kColumns[0].title, TmyTheme::Font::kBold);
  valueWidth_ = Theme().TextWidth(kColumns[1].title, TmyTheme::Font::kBold);
  for (const Row& row : rows_) {
    labelWidth_ = std::max(labelWidth_, Theme().TextWidth(row.label));
    valueWidth_ = std::max(valueWidth_, Theme().TextWidth(row.value));
  }
  labelWidth_ += margin;
  valueWidth_ += margin;
  measuredHeight_ = Theme().TextHeight();
  grid_->SetColumnWidth(0, labelWidth_);
}

SIZE DetailDialog::FittingSize() const {
  const int margins = 2 * Theme().Step() + 2;  // two pixels for the grid's frame
  const int value = std::clamp(valueWidth_, Theme().Scaled(kLeastValueWidth), Theme().Scaled(kMostValueWidth));
  const GridGeometry::Layout& grid = grid_->Layout();
  const int rows = grid.titleHeight + static_cast<int>(RowCount()) * grid.rowHeight;
  // A value that scrolls needs its bar.
  const int bar = value < valueWidth_ ? TmyScrollBar::Thickness() : 0;
  return WithFrame(labelWidth_ + value + margins, rows + bar + margins + Theme().FieldHeight() + Theme().Step());
}

SIZE DetailDialog::SmallestSize() const {
  const GridGeometry::Layout& grid = grid_->Layout();
  const int rows = grid.titleHeight + static_cast<int>(std::min(kSmallestRows, RowCount())) * grid.rowHeight;
  return WithFrame(labelWidth_ + Theme().Scaled(kLeastValueWidth) / 2,
                   rows + TmyScrollBar::Thickness() + 3 * Theme().Step() + 2 + Theme().FieldHeight());
}

void DetailDialog::Realign() {
  const int step = Theme().Step();
  const int buttonTop = ClientHeight() - step - close_.PreferredSize().cy;
  grid_->SetBounds(step, step, std::max(0, ClientWidth() - 2 * step), std::max(0, buttonTop - 2 * step));
  close_.SetBounds(ClientWidth() - step - close_.PreferredWidth(), buttonTop, close_.PreferredWidth(),
                   close_.PreferredSize().cy);
  ColumnResized(0);
}

// The values take all the width that the labels leave. First the least they need: a scroll bar for a width that no
// longer counts would take room.
void DetailDialog::ColumnResized(int column) {
  if (column != 0) return;
  grid_->SetColumnWidth(1, valueWidth_);
  const RECT& area = grid_->Layout().area;
  const int left = static_cast<int>(area.right - area.left) - GridGeometry::DrawnWidth(grid_->ColumnWidth(0));
  grid_->SetColumnWidth(1, std::max(valueWidth_, left));
}

void DetailDialog::ThemeChanged() {
  TmyDialog::ThemeChanged();
  if (measuredHeight_ == Theme().TextHeight()) return;
  MeasureColumns();
  PlaceCentred(*this, FittingSize());
}

std::string DetailDialog::TextToCopy() const {
  const auto line = [](const Row& row) { return row.label + '\t' + row.value; };
  const uint32_t current = grid_->CurrentRow();
  if (current != TmyStringGrid::kNoRow) return line(rows_[TmyStringGrid::RecordOf(current)]);
  std::string text;
  for (const Row& row : rows_) text += line(row) + "\r\n";
  return text;
}

void DetailDialog::PreviewKey(TmyComponent&, uint32_t& key, LPARAM) {
  if ((key != 'C' && key != 'A') || GetKeyState(VK_CONTROL) >= 0 || GetKeyState(VK_MENU) < 0) return;
  if (key == 'A') {
    grid_->SetCurrentRow(TmyStringGrid::kNoRow, false);
  } else {
    SetClipboardText(Handle(), TextToCopy().c_str());
  }
  key = 0;
}

void DetailDialog::Escape() {
  Destroy();
}

void DetailDialog::CloseClicked(Tmy_Btn&) {
  Destroy();
}

LRESULT DetailDialog::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_GETMINMAXINFO && labelWidth_ > 0) {
    const SIZE least = SmallestSize();
    reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
    return 0;
  }
  return TmyDialog::WndProc(message, wParam, lParam);
}

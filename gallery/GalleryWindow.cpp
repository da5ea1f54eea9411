#include "gallery/GalleryWindow.h"

#include <algorithm>

#include "toolkit/FocusOrder.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr uintptr_t kPicturesTimer = 1;
constexpr UINT kBeforePictures = 400;  // milliseconds, until the window manager has given us the focus
enum Column { kNormal, kDisabled, kFocused, kColumns };
constexpr const char* kTitles[kColumns] = {"Normal", "Disabled", "With the focus"};

// At 96 dpi.
constexpr int kNameWidth = 150;
constexpr int kCellWidth = 130;
constexpr int kLargeHeight = 92;

TmyTheme& Theme() {
  return TmyApplication::Get().Theme();
}

int CellLeft(const RECT& row, int column) {
  return row.left + Theme().Scaled(kNameWidth) + column * (Theme().Scaled(kCellWidth) + 2 * Theme().Step());
}

int BlockWidth() {
  return CellLeft({}, kColumns);
}

int TitleHeight() {
  return Theme().RowHeight() + 2 * Theme().Step();
}

}  // namespace

GalleryWindow::GalleryWindow() : TmyComponent("Please wait", kStyle, 0, 0, 0, 100, 100, nullptr) {
  SetDoubleBuffered(true);
  const int margin = 2 * Theme().Step();
  const int small = AddRows(SmallSamples(), margin, Theme().FieldHeight());
  const int large = AddRows(LargeSamples(), 2 * margin + BlockWidth(), Theme().Scaled(kLargeHeight));
  RECT frame = {0, 0, 3 * margin + 2 * BlockWidth() - 2 * Theme().Step(), std::max(small, large) + Theme().Step()};
  AdjustWindowRectEx(&frame, kStyle, FALSE, 0);
  SetBounds(0, 0, frame.right - frame.left, frame.bottom - frame.top);
  Show(true);
  SetTimer(Handle(), kPicturesTimer, kBeforePictures, nullptr);
}

int GalleryWindow::AddRows(std::span<const Sample> samples, int left, int height) {
  int top = TitleHeight();
  for (const Sample& sample : samples) {
    const RECT place = {left, top, left + BlockWidth(), top + height};
    rows_.push_back(
        {&sample, place, AddCell(sample, place, kNormal, true), AddCell(sample, place, kDisabled, false), {}});
    top += height + Theme().Step();
  }
  return top;
}

SampleCell* GalleryWindow::AddCell(const Sample& sample, const RECT& row, int column, bool enabled) {
  auto* cell = new SampleCell(*this);
  cell->SetBounds(CellLeft(row, column), row.top, Theme().Scaled(kCellWidth), row.bottom - row.top);
  sample.make(*cell);
  cell->Enable(enabled);
  return cell;
}

void GalleryWindow::Timer(uintptr_t id) {
  if (id != kPicturesTimer) return;
  KillTimer(Handle(), kPicturesTimer);
  SetForegroundWindow(Handle());
  for (Row& row : rows_) TakePicture(row);
  TakeFocus();
  Repaint();
  SetCaption(kCaption);
}

// The context does not leave out the cell's children.
void GalleryWindow::TakePicture(Row& row) {
  SampleCell& cell = *row.normal;
  FocusOrderOf(cell).First();
  const HWND focus = ::GetFocus();
  const bool isCell = focus == cell.Handle();
  if (isCell ? !cell.FocusedControl() : !IsChild(cell.Handle(), focus)) return;
  RedrawWindow(cell.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  const HDC screen = GetDCEx(cell.Handle(), nullptr, DCX_CACHE);
  const HDC memory = CreateCompatibleDC(screen);
  row.focused.reset(CreateCompatibleBitmap(screen, cell.ClientWidth(), cell.ClientHeight()));
  {
    const Selected selected(memory, row.focused.get());
    BitBlt(memory, 0, 0, cell.ClientWidth(), cell.ClientHeight(), screen, 0, 0, SRCCOPY);
  }
  DeleteDC(memory);
  ReleaseDC(cell.Handle(), screen);
  cell.FocusDrawn(nullptr);
}

void GalleryWindow::Paint(HDC dc) {
  for (const int left : {rows_.front().place.left, rows_.back().place.left}) {
    for (int column = 0; column < kColumns; ++column) {
      const RECT place = {CellLeft({left, 0, 0, 0}, column), 0, left + BlockWidth(), TitleHeight()};
      ThemeDraw::Text(dc, place, kTitles[column], Theme().Color().secondary, Theme().Get(TmyTheme::Font::kBold));
    }
  }
  for (const Row& row : rows_) PaintRow(dc, row);
}

void GalleryWindow::PaintRow(HDC dc, const Row& row) const {
  const TmyTheme::Colors& color = Theme().Color();
  RECT name = row.place;
  name.bottom = name.top + Theme().FieldHeight();
  name.right = CellLeft(row.place, 0) - Theme().Step();
  ThemeDraw::Text(dc, name, row.sample->name, color.text, Font());
  RECT picture = name;
  picture.left = CellLeft(row.place, kFocused);
  picture.right = row.place.right;
  if (!row.focused) {
    ThemeDraw::Text(dc, picture, "none", color.disabled, Font());
    return;
  }
  const HDC memory = CreateCompatibleDC(dc);
  {
    const Selected selected(memory, row.focused.get());
    BitBlt(dc, picture.left, picture.top, row.normal->ClientWidth(), row.normal->ClientHeight(), memory, 0, 0, SRCCOPY);
  }
  DeleteDC(memory);
}

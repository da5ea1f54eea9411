#include "gallery/GalleryWindow.h"

#include <algorithm>

#include "toolkit/TabOrder.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr uintptr_t kPicturesTimer = 1;
constexpr UINT kBeforePictures = 400;  // milliseconds, until the window manager has given us the focus
constexpr const char* kTitles[kStates] = {"Normal", "Under the mouse", "Held down", "With the focus", "Disabled"};

// At 96 dpi.
constexpr int kNameWidth = 160;
constexpr int kCellWidth = 130;
constexpr int kLargeHeight = 78;
constexpr int kOpenedWidth = 270;
constexpr int kOpenedCellWidth = 170;
constexpr int kOpenedHeight = 360;
constexpr int kOpenedColumns = 3;

int Margin() {
  return 2 * Theme().Step();
}
int TitleHeight() {
  return Theme().RowHeight() + Margin();
}
int CellLeft(unsigned column) {
  return Margin() + Theme().Scaled(kNameWidth) + static_cast<int>(column) * (Theme().Scaled(kCellWidth) + Margin());
}
int RowsHeight(size_t rows, int height) {
  return TitleHeight() + static_cast<int>(rows) * (height + Theme().Step()) + Theme().Step();
}

POINT PartOf(const SampleCell& cell, POINT perCent) {
  return {cell.ClientWidth() * perCent.x / 100, cell.ClientHeight() * perCent.y / 100};
}

// To the window that has the mouse there.
void SendMouse(HWND window, UINT message, WPARAM keys, POINT at) {
  for (HWND child = window; child;) {
    child = ChildWindowFromPointEx(window, at, CWP_SKIPINVISIBLE | CWP_SKIPTRANSPARENT | CWP_SKIPDISABLED);
    if (child == window || !child) break;
    MapWindowPoints(window, child, &at, 1);
    window = child;
  }
  SendMessageA(window, message, keys, MAKELPARAM(at.x, at.y));
}

}  // namespace

GalleryWindow::GalleryWindow(Page page, std::vector<std::string>& faults)
    : TmyComponent("Please wait", kStyle, 0, 0, 0, 100, 100, nullptr), faults_(faults) {
  SetDoubleBuffered(true);
  AddMenu();
  ShowPage(page);
  Show(true);
}

void GalleryWindow::AddMenu() {
  TmyMenu& pages = menu_.AddSubmenu("&Page");
  pages.AddItem("&Controls").chosen.Bind<&GalleryWindow::ShowControls>(this);
  pages.AddItem("&Panels").chosen.Bind<&GalleryWindow::ShowPanels>(this);
  pages.AddItem("What &opens").chosen.Bind<&GalleryWindow::ShowOpened>(this);
  menu_.AttachTo(Handle());
}

void GalleryWindow::ShowPage(Page page) {
  page_ = page;
  for (SampleCell* cell : cells_) cell->Destroy();
  cells_.clear();
  words_.clear();
  pictures_.clear();
  const SIZE size = PageSize();
  RECT frame = {0, 0, size.cx, size.cy};
  AdjustWindowRectEx(&frame, kStyle, TRUE, 0);
  SetBounds(0, 0, frame.right - frame.left, frame.bottom - frame.top);
  Repaint();
  SetTimer(Handle(), kPicturesTimer, kBeforePictures, nullptr);
}

SIZE GalleryWindow::PageSize() const {
  const LONG width = CellLeft(kStates);
  if (page_ == Page::kControls) return {width, RowsHeight(SmallSamples().size(), Theme().FieldHeight())};
  if (page_ == Page::kPanels) return {width, RowsHeight(LargeSamples().size(), Theme().Scaled(kLargeHeight))};
  return {Margin() + kOpenedColumns * Theme().Scaled(kOpenedWidth), Theme().Scaled(kOpenedHeight)};
}

// A box or a menu among the samples runs a loop, in which the user may close this window.
void GalleryWindow::Timer(uintptr_t id) {
  if (id != kPicturesTimer) return;
  KillTimer(Handle(), kPicturesTimer);
  SetForegroundWindow(Handle());
  if (page_ == Page::kControls) FillRows(SmallSamples(), Theme().FieldHeight());
  if (page_ == Page::kPanels) FillRows(LargeSamples(), Theme().Scaled(kLargeHeight));
  if (page_ == Page::kOpened) FillOpened();
  if (!IsAlive()) return;
  TakeFocus();
  Repaint();
  SetCaption(kCaption);
}

void GalleryWindow::FillRows(std::span<const Sample> samples, int height) {
  for (unsigned column = 0; column < kStates; ++column) {
    const int left = CellLeft(column);
    words_.push_back({{left, 0, left + Theme().Scaled(kCellWidth), TitleHeight()}, kTitles[column], true});
  }
  int top = TitleHeight();
  for (const Sample& sample : samples) {
    FillRow(sample, {Margin(), top, CellLeft(0), top + height});
    top += height + Theme().Step();
  }
}

// A state leaves nothing behind in another: each has a control of its own.
void GalleryWindow::FillRow(const Sample& sample, const RECT& row) {
  words_.push_back({{row.left, row.top, row.right, row.top + Theme().FieldHeight()}, sample.name, false});
  Picture normal;
  for (const State state : {kNormal, kHot, kPressed, kFocused, kDisabled}) {
    if ((sample.states & 1u << state) == 0) continue;
    const int left = CellLeft(state);
    SampleCell* cell = AddCell({left, row.top, left + Theme().Scaled(kCellWidth), row.bottom});
    sample.make(*cell);
    Bring(*cell, sample.mouse, state);
    Picture picture(cell->Handle());
    Check(sample.name, state, picture, normal);
    if (state == kNormal) {
      normal = std::move(picture);
      continue;
    }
    if (state == kDisabled) continue;
    cells_.pop_back();
    cell->Destroy();
    pictures_.push_back({{left, row.top}, std::move(picture), false});
  }
}

void GalleryWindow::FillOpened() {
  int tops[kOpenedColumns] = {};
  for (const OpenedSample& sample : OpenedSamples()) {
    int& top = tops[sample.column];
    const int left = Margin() + sample.column * Theme().Scaled(kOpenedWidth);
    const int right = left + Theme().Scaled(kOpenedCellWidth);
    words_.push_back({{left, top, right, top + TitleHeight()}, sample.name, true});
    top += TitleHeight();
    SampleCell* cell = AddCell({left, top, right, top + Theme().FieldHeight()});
    Picture picture = sample.take(*cell);
    if (!IsAlive()) return;
    const bool isUsed = cell->FirstControl() || GetWindow(cell->Handle(), GW_CHILD);
    cell->Show(isUsed);
    if (isUsed) top += Theme().FieldHeight();
    Check(sample.name, kNormal, picture, {});
    const int height = picture.Size().cy;
    pictures_.push_back({{left, top}, std::move(picture), sample.needsFrame});
    top += height + Theme().Step();
  }
}

SampleCell* GalleryWindow::AddCell(const RECT& place) {
  auto* cell = new SampleCell(*this);
  cell->SetBounds(place.left, place.top, place.right - place.left, place.bottom - place.top);
  cells_.push_back(cell);
  return cell;
}

void GalleryWindow::Bring(SampleCell& cell, POINT mouse, State state) {
  cell.Enable(state != kDisabled);
  if (state == kFocused) TabOrder(cell).First();
  if (state != kHot && state != kPressed) return;
  SendMouse(cell.Handle(), WM_MOUSEMOVE, 0, PartOf(cell, mouse));
  if (state == kPressed) SendMouse(cell.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, PartOf(cell, mouse));
}

void GalleryWindow::Check(const char* sample, State state, const Picture& picture, const Picture& normal) {
  const std::string cell = std::string(sample) + ", " + kTitles[state] + ": ";
  if (picture.IsPlain()) faults_.push_back(cell + "shows nothing");
  if (state != kNormal && picture.LooksAs(normal)) faults_.push_back(cell + "looks as the normal one");
}

void GalleryWindow::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  for (const Words& words : words_) {
    ThemeDraw::Text(dc, words.place, words.text, words.isTitle ? color.secondary : color.text,
                    words.isTitle ? Theme().Get(TmyTheme::Font::kBold) : Font());
  }
  for (const auto& [at, picture, needsFrame] : pictures_) {
    picture.Paint(dc, at.x, at.y);
    const RECT area = {at.x, at.y, at.x + picture.Size().cx, at.y + picture.Size().cy};
    if (needsFrame) ThemeDraw::Frame(dc, area, color.secondary);
  }
}

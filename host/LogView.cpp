#include "host/LogView.h"

#include <windowsx.h>

#include <algorithm>

namespace {

constexpr char kClass[] = "MarluxHostLog";

}  // namespace

bool LogView::Create(HWND parent, int id) {
  const HINSTANCE module = GetModuleHandleA(nullptr);
  WNDCLASSA kind{};
  kind.lpfnWndProc = Procedure;
  kind.hInstance = module;
  kind.lpszClassName = kClass;
  kind.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  RegisterClassA(&kind);
  window_ = CreateWindowExA(0, kClass, "Calls", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), module, this);
  return window_ != nullptr;
}

LRESULT CALLBACK LogView::Procedure(HWND window, UINT message, WPARAM word, LPARAM data) {
  if (message == WM_NCCREATE) {
    auto* const view = static_cast<LogView*>(reinterpret_cast<CREATESTRUCTA*>(data)->lpCreateParams);
    view->window_ = window;
    SetWindowLongA(window, GWL_USERDATA, reinterpret_cast<LONG>(view));
  }
  auto* const view = reinterpret_cast<LogView*>(GetWindowLongA(window, GWL_USERDATA));
  return view ? view->Handle(message, word, data) : DefWindowProcA(window, message, word, data);
}

LRESULT LogView::Handle(UINT message, WPARAM word, LPARAM data) {
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      Refresh();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(window_, nullptr, FALSE);
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      Key(word);
      return 0;
    case WM_MOUSEWHEEL:
      wheelRest_ += GET_WHEEL_DELTA_WPARAM(word) * 3;
      ScrollTo(top_ - wheelRest_ / WHEEL_DELTA);
      wheelRest_ %= WHEEL_DELTA;
      return 0;
    case WM_LBUTTONDOWN:
      SetFocus(window_);
      if (GET_X_LPARAM(data) >= Bar().left) MouseDown(GET_Y_LPARAM(data));
      return 0;
    case WM_MOUSEMOVE:
      if (dragFrom_ >= 0) {
        const RECT bar = Bar(), thumb = Thumb();
        const int way = std::max<int>(1, bar.bottom - bar.top - (thumb.bottom - thumb.top));
        ScrollTo(MulDiv(GET_Y_LPARAM(data) - dragFrom_ - bar.top, LastTop(), way));
      }
      return 0;
    case WM_LBUTTONUP:
      ReleaseCapture();
      return 0;
    case WM_CAPTURECHANGED:
      dragFrom_ = -1;
      return 0;
  }
  return DefWindowProcA(window_, message, word, data);
}

void LogView::Refresh() {
  top_ = follows_ ? LastTop() : std::min(top_, LastTop());
  InvalidateRect(window_, nullptr, FALSE);
}

void LogView::ScrollTo(int top) {
  top_ = std::clamp(top, 0, LastTop());
  follows_ = top_ == LastTop();
  InvalidateRect(window_, nullptr, FALSE);
}

void LogView::Key(WPARAM key) {
  switch (key) {
    case VK_UP:
      return ScrollTo(top_ - 1);
    case VK_DOWN:
      return ScrollTo(top_ + 1);
    case VK_PRIOR:
      return ScrollTo(top_ - Page());
    case VK_NEXT:
      return ScrollTo(top_ + Page());
    case VK_HOME:
      return ScrollTo(0);
    case VK_END:
      return ScrollTo(LastTop());
  }
}

void LogView::MouseDown(int y) {
  const RECT thumb = Thumb();
  if (y < thumb.top) return ScrollTo(top_ - Page());
  if (y >= thumb.bottom) return ScrollTo(top_ + Page());
  dragFrom_ = y - thumb.top;
  SetCapture(window_);
}

RECT LogView::Client() const {
  RECT area;
  GetClientRect(window_, &area);
  return area;
}

int LogView::Page() const {
  const RECT area = Client();
  return std::max<int>(1, (area.bottom - area.top - 2 * theme_.Scale(4)) / theme_.RowHeight());
}

int LogView::LastTop() const {
  return std::max(0, Count() - Page());
}

RECT LogView::Bar() const {
  RECT bar = Client();
  InflateRect(&bar, -theme_.Scale(3), -theme_.Scale(3));
  bar.left = bar.right - theme_.Scale(8);
  return bar;
}

RECT LogView::Thumb() const {
  RECT thumb = Bar();
  if (LastTop() == 0) return {};
  const int height = thumb.bottom - thumb.top;
  const int length = std::max(theme_.Scale(24), MulDiv(height, Page(), Count()));
  thumb.top += MulDiv(height - length, top_, LastTop());
  thumb.bottom = thumb.top + length;
  return thumb;
}

void LogView::Paint() {
  const BufferedPaint paint(window_);
  const HDC dc = paint.Dc();
  const bool focused = GetFocus() == window_;
  theme_.Fill(dc, paint.Area(), theme_.colours.surface);
  theme_.Box(dc, paint.Area(), theme_.colours.field, focused ? theme_.colours.accent : theme_.colours.line);
  RECT row = {1, theme_.Scale(4), Bar().left - theme_.Scale(2), 0};
  for (int i = top_; i < Count() && i < top_ + Page(); ++i) {
    row.bottom = row.top + theme_.RowHeight();
    PaintLine(dc, row, log_.Lines()[static_cast<size_t>(i)], i % 2 != 0);
    row.top = row.bottom;
  }
  PaintBar(dc);
}

void LogView::PaintLine(HDC dc, const RECT& area, const LogLine& line, bool odd) const {
  const auto& colours = theme_.colours;
  if (odd && colours.surface != colours.field) theme_.Fill(dc, area, RGB(0xF7, 0xF9, 0xFB));
  const int gap = theme_.Scale(12);
  const int timeWidth = theme_.TextWidth("0000.000", theme_.Font());
  const int kindWidth = theme_.TextWidth("callback", theme_.Font());
  const COLORREF kindColour = line.kind == LogKind::kError      ? colours.error
                              : line.kind == LogKind::kCallback ? colours.accent
                              : line.kind == LogKind::kNotify   ? colours.notify
                                                                : colours.secondary;
  RECT cell = area;
  cell.left += theme_.Scale(8);
  cell.right = cell.left + timeWidth;
  char seconds[16];
  wsprintfA(seconds, "%u.%03u", line.milliseconds / 1000, line.milliseconds % 1000);
  theme_.Write(dc, cell, seconds, theme_.Font(), colours.secondary, DT_RIGHT);
  cell.left = cell.right + gap;
  cell.right = cell.left + kindWidth;
  theme_.Write(dc, cell, KindName(line.kind), theme_.Font(), kindColour);
  cell.left = cell.right + gap;
  cell.right = area.right;
  theme_.Write(dc, cell, line.text, theme_.Font(), line.kind == LogKind::kError ? colours.error : colours.text);
}

void LogView::PaintBar(HDC dc) const {
  const RECT thumb = Thumb();
  if (!IsRectEmpty(&thumb)) theme_.Box(dc, thumb, theme_.colours.line, theme_.colours.line);
}

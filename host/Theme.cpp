#include "host/Theme.h"

namespace {

int ScreenDpi() {
  return GetDeviceCaps(ScreenDc(), LOGPIXELSY);
}

LOGFONTA MessageFont() {
  NONCLIENTMETRICSA metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return metrics.lfMessageFont;
}

HFONT Made(LOGFONTA font, LONG weight, LONG factor) {
  font.lfWeight = weight;
  font.lfHeight *= factor;
  return CreateFontIndirectA(&font);
}

bool IsHighContrast() {
  HIGHCONTRASTA contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         contrast.dwFlags & HCF_HIGHCONTRASTON;
}

Theme::Colours ColoursNow() {
  if (IsHighContrast()) {
    const COLORREF window = GetSysColor(COLOR_WINDOW), text = GetSysColor(COLOR_WINDOWTEXT);
    return {window,
            window,
            text,
            text,
            text,
            GetSysColor(COLOR_GRAYTEXT),
            GetSysColor(COLOR_HIGHLIGHT),
            GetSysColor(COLOR_HIGHLIGHTTEXT),
            window,
            text,
            text};
  }
  return {.surface = RGB(0xF4, 0xF5, 0xF7),
          .field = RGB(0xFF, 0xFF, 0xFF),
          .line = RGB(0xC3, 0xCA, 0xD2),
          .text = RGB(0x1B, 0x1F, 0x24),
          .secondary = RGB(0x57, 0x60, 0x6A),
          .disabled = RGB(0x9A, 0xA3, 0xAD),
          .accent = RGB(0x0B, 0x6B, 0xCB),
          .onAccent = RGB(0xFF, 0xFF, 0xFF),
          .pressed = RGB(0xE4, 0xE8, 0xED),
          .error = RGB(0xC6, 0x28, 0x28),
          .notify = RGB(0x1B, 0x6E, 0x3C)};
}

RECT ClientOf(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return area;
}

}  // namespace

BufferedPaint::BufferedPaint(HWND window)
    : window_(window),
      area_(ClientOf(window)),
      screen_(BeginPaint(window, &paint_)),
      memory_(CreateCompatibleDC(screen_)),
      bitmap_(CreateCompatibleBitmap(screen_, area_.right, area_.bottom)),
      before_(SelectObject(memory_, bitmap_)) {}

BufferedPaint::~BufferedPaint() {
  BitBlt(screen_, 0, 0, area_.right, area_.bottom, memory_, 0, 0, SRCCOPY);
  SelectObject(memory_, before_);
  DeleteDC(memory_);
  EndPaint(window_, &paint_);
}

Theme::Theme()
    : colours(ColoursNow()),
      dpi_(ScreenDpi()),
      message_(MessageFont()),
      font_(Made(message_, FW_NORMAL, 1)),
      bold_(Made(message_, FW_BOLD, 1)),
      display_(Made(message_, FW_NORMAL, 3)) {
  const ScreenDc dc;
  const HGDIOBJ before = SelectObject(dc, font_);
  TEXTMETRICA metrics{};
  GetTextMetricsA(dc, &metrics);
  textHeight_ = metrics.tmHeight;
  SelectObject(dc, before);
}

int Theme::TextWidth(const std::string& text, HFONT font) const {
  const ScreenDc dc;
  const HGDIOBJ before = SelectObject(dc, font);
  SIZE size{};
  GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
  SelectObject(dc, before);
  return size.cx;
}

void Theme::Fill(HDC dc, const RECT& area, COLORREF colour) const {
  SetBkColor(dc, colour);
  ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

void Theme::Box(HDC dc, const RECT& area, COLORREF inside, COLORREF line) const {
  const GdiObject<HPEN> pen(CreatePen(PS_SOLID, 1, line));
  const GdiObject<HBRUSH> brush(CreateSolidBrush(inside));
  const HGDIOBJ oldPen = SelectObject(dc, pen), oldBrush = SelectObject(dc, brush);
  const int round = Scale(4);
  RoundRect(dc, area.left, area.top, area.right, area.bottom, round, round);
  SelectObject(dc, oldPen);
  SelectObject(dc, oldBrush);
}

void Theme::Write(HDC dc, RECT area, const std::string& text, HFONT font, COLORREF colour, UINT format) const {
  const HGDIOBJ before = SelectObject(dc, font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, colour);
  DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &area,
            format | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(dc, before);
}

void Theme::Button(HDC dc, const RECT& area, const std::string& text, const ButtonState& state) const {
  Fill(dc, area, colours.surface);
  const COLORREF inside = state.chosen ? colours.accent : state.pressed ? colours.pressed : colours.field;
  Box(dc, area, inside, state.chosen || state.focused ? colours.accent : colours.line);
  if (state.focused) {
    RECT inner = area;
    InflateRect(&inner, -1, -1);
    const COLORREF frame = state.chosen ? colours.onAccent : colours.accent;
    Box(dc, inner, inside, frame);
  }
  const COLORREF colour = state.disabled ? colours.disabled : state.chosen ? colours.onAccent : colours.text;
  Write(dc, area, text, font_, colour, DT_CENTER);
}

#include "toolkit/TmyFloatingSelection.h"

#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

TmyFloatingSelection::TmyFloatingSelection(TmyComponent& parent)
    : TmyComponent("", WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, 0, &parent) {
  SetDoubleBuffered(true);
}

void TmyFloatingSelection::ShowAt(const RECT& place) {
  SetWindowPos(Handle(), HWND_TOP, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void TmyFloatingSelection::Paint(HDC dc) {
  ThemeDraw::Fill(dc, {0, 0, ClientWidth(), ClientHeight()}, Theme().Color().accent);
}

LRESULT TmyFloatingSelection::EraseBackground(HDC) {
  return 1;
}  // Paint covers everything

LRESULT TmyFloatingSelection::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCHITTEST) return HTTRANSPARENT;
  return TmyComponent::WndProc(message, wParam, lParam);
}

void TmyFloatingSelection2::SetText(const TmyString& text) {
  if (text == text_) return;
  text_ = text;
  Repaint();
}

void TmyFloatingSelection2::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT all = {0, 0, ClientWidth(), ClientHeight()};
  ThemeDraw::Fill(dc, all, color.marked);
  ThemeDraw::Frame(dc, all, color.accent);
  const int margin = Theme().Scaled(7);
  ThemeDraw::Text(dc, {margin, 0, all.right - margin, all.bottom}, text_.View(), color.text,
                  Theme().Get(TmyTheme::Font::kBold));
}

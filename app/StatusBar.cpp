#include "app/StatusBar.h"

#include "toolkit/TmyApplication.h"

StatusBar::StatusBar(TmyComponent& parent) : TmyPanel(parent, WS_VISIBLE) {}

void StatusBar::SetCounts(uint32_t shown, uint32_t all) {
  const TmyString next = Formatted("%u of %u broadcasts", shown, all);
  if (next == text_) return;
  text_ = next;
  SetCaption(text_);  // what automation and screen readers see
  Repaint();
}

int StatusBar::PreferredHeight() const {
  const TmyTheme& theme = TmyApplication::Get().Theme();
  return theme.TextHeight() + 2 * theme.Step();
}

void StatusBar::Paint(HDC dc) {
  const TmyTheme& theme = TmyApplication::Get().Theme();
  ThemeDraw::Fill(dc, {0, 0, ClientWidth(), 1}, theme.Color().line);
  const RECT area = {theme.Step(), 1, ClientWidth() - theme.Step(), ClientHeight()};
  ThemeDraw::Text(dc, area, text_.View(), theme.Color().secondary, Font(), DT_RIGHT | DT_NOCLIP);
}

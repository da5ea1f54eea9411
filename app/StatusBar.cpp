#include "app/StatusBar.h"

#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {
TmyString CountsText(uint32_t shown, uint32_t all) {
  return Formatted(all == 1 ? "%u of %u broadcast" : "%u of %u broadcasts", shown, all);
}
}  // namespace

StatusBar::StatusBar(TmyComponent& parent) : TmyPanel(parent, WS_VISIBLE) {}

void StatusBar::SetCounts(uint32_t shown, uint32_t all) {
  const TmyString next = CountsText(shown, all);
  if (next == text_) return;
  text_ = next;
  SetCaption(text_);  // what automation and screen readers see
  Repaint();
  const TmyString widest = CountsText(all, all);
  if (widest == widest_) return;
  widest_ = widest;
  if (TmyComponent* const parent = GetParent()) parent->Realign();
}

void StatusBar::SetNote(const TmyString& note) {
  if (note == note_) return;
  note_ = note;
  SetToolTip(note);  // whole, where the window is narrow
  Repaint();
  if (TmyComponent* const parent = GetParent()) parent->Realign();
}

void StatusBar::Place(const RECT& bounds, int lineTop, int lineBottom) {
  lineTop_ = lineTop;
  lineBottom_ = lineBottom;
  SetBounds(bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top);
  Repaint();
}

int StatusBar::PreferredWidth() const {
  const TmyTheme& theme = Theme();
  return theme.TextWidth(widest_.View()) + 2 * theme.Step();
}

int StatusBar::PreferredHeight() const {
  const TmyTheme& theme = Theme();
  return theme.TextHeight() + 2 * theme.Step();
}

void StatusBar::Paint(HDC dc) {
  const TmyTheme& theme = Theme();
  const COLORREF color = theme.Color().secondary;
  ThemeDraw::Fill(dc, {0, 0, ClientWidth(), 1}, theme.Color().line);
  RECT area = {theme.Step(), lineTop_, ClientWidth() - theme.Step(), lineBottom_};
  ThemeDraw::Text(dc, area, text_.View(), color, Font(), DT_RIGHT | DT_NOCLIP);
  area.right -= theme.TextWidth(text_.View()) + 2 * theme.Step();
  if (HasNote()) ThemeDraw::Text(dc, area, note_.View(), color, Font());
}

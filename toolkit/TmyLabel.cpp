#include "toolkit/TmyLabel.h"

#include "toolkit/TmyApplication.h"

namespace {

constexpr UINT kFormat = DT_LEFT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX;  // long words are broken, too

}  // namespace

// The text is the window's caption, too: what automation and screen readers see.
TmyLabel::TmyLabel(TmyComponent& parent, const TmyString& text)
    : TmyPanel(parent, WS_VISIBLE, text.Chars()), text_(text) {}

void TmyLabel::SetText(const TmyString& text) {
  if (text == text_) return;
  text_ = text;
  SetCaption(text_);
  Repaint();
}

void TmyLabel::SetSecondary(bool secondary) {
  secondary_ = secondary;
  Repaint();
}

SIZE TmyLabel::SizeFor(int most) const {
  const WindowDc screen(nullptr);
  const Selected selected(screen.Get(), Font());
  RECT area = {0, 0, most, 0};
  DrawTextA(screen.Get(), text_.Chars(), -1, &area, kFormat | DT_CALCRECT);
  return {area.right, area.bottom};
}

void TmyLabel::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const Selected selected(dc, Font());
  const COLORREF enabled = secondary_ ? color.secondary : color.text;
  const COLORREF former = SetTextColor(dc, IsEnabled() ? enabled : color.disabled);
  const int formerMode = SetBkMode(dc, TRANSPARENT);
  RECT area = {0, 0, ClientWidth(), ClientHeight()};
  DrawTextA(dc, text_.Chars(), -1, &area, kFormat);
  SetBkMode(dc, formerMode);
  SetTextColor(dc, former);
}

void TmyLabel::EnabledChanged() {
  Repaint();
}

#include "toolkit/Tmy_Label.h"

#include "toolkit/TmyApplication.h"

namespace {

const TmyTheme& Theme() {
  return TmyApplication::Get().Theme();
}

UINT FormatOf(Tmy_Label::Align align) noexcept {
  if (align == Tmy_Label::Align::kCenter) return DT_CENTER;
  return align == Tmy_Label::Align::kRight ? DT_RIGHT : DT_LEFT;
}

}  // namespace

void Tmy_Label::SetText(const TmyString& text) {
  if (text == text_) return;
  text_ = text;
  Repaint();
}

void Tmy_Label::Overwrite(std::string_view text) {
  if (text == text_.View()) return;
  if (text.size() != text_.Length()) text_ = TmyString(text);
  for (uint32_t i = 0; i < text_.Length(); ++i) *text_.WritableAt(i) = text[i];
  Repaint();
}

void Tmy_Label::SetAlign(Align align) {
  align_ = align;
  Repaint();
}

void Tmy_Label::SetSecondary(bool secondary) {
  secondary_ = secondary;
  Repaint();
}

void Tmy_Label::SetFont(TmyTheme::Font font) {
  font_ = font;
  Repaint();
}

SIZE Tmy_Label::PreferredSize() const {
  return {Theme().TextWidth(text_.View(), font_), Theme().TextHeight()};
}

void Tmy_Label::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const COLORREF enabled = secondary_ ? color.secondary : color.text;
  ThemeDraw::Text(dc, {0, 0, Width(), Height()}, text_.View(), IsEnabled() ? enabled : color.disabled,
                  Theme().Get(font_), FormatOf(align_));
}

#include "toolkit/Tmy_Btn2.h"

#include <algorithm>

#include "toolkit/SmoothShapes.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr int kWidth = 30;  // at 96 dpi
constexpr int kHeight = 28;
constexpr int kGlyph = 14;  // side of the picture's square
constexpr int kFocusInset = 2;

}  // namespace

void Tmy_Btn2::SetMeaning(const TmyString& caption) {
  if (caption == Caption()) return;
  SetCaption(caption);
  SetToolTip(caption);
}

void Tmy_Btn2::SetLit(bool lit) {
  if (lit == lit_) return;
  lit_ = lit;
  Repaint();
}

void Tmy_Btn2::SetGlyphColor(COLORREF color) {
  if (color == glyphColor_) return;
  glyphColor_ = color;
  Repaint();
}

SIZE Tmy_Btn2::PreferredSize() const {
  return {Theme().Scaled(kWidth), Theme().Scaled(kHeight)};
}

void Tmy_Btn2::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT all = {0, 0, Width(), Height()};
  const bool isLit = lit_ && IsEnabled();
  SmoothShapes::Box(dc, all, isLit ? color.pressed : InsideColor(),
                    IsHot() || HasFocus() || isLit ? color.accent : color.line);
  if (HasFocus()) {
    RECT inner = all;
    InflateRect(&inner, -kFocusInset, -kFocusInset);
    ThemeDraw::Frame(dc, inner, color.accent);
  }
  const int side = std::min({Theme().Scaled(kGlyph), Width(), Height()});
  const int left = (Width() - side) / 2, top = (Height() - side) / 2;
  const COLORREF enabled = glyphColor_ == CLR_INVALID ? color.text : glyphColor_;
  glyph_(dc, {left, top, left + side, top + side}, IsEnabled() ? enabled : color.disabled);
}

#include "toolkit/Tmy_Clickable.h"

#include <string>

#include "toolkit/ListKeys.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/myComponents.h"

namespace {

constexpr int kMarkGap = 6;   // between the mark and its caption, at 96 dpi
constexpr int kFocusGap = 2;  // between the caption and its focus frame

}  // namespace

void Tmy_Clickable::SetCaption(const TmyString& caption) {
  caption_ = caption;
  Repaint();
}

void Tmy_Clickable::MouseDown(uint32_t, int, int) {
  pressed_ = true;
  inside_ = true;
  Repaint();
}

void Tmy_Clickable::MouseMove(uint32_t, int x, int y) {
  SetInside(x >= 0 && y >= 0 && x < Width() && y < Height());
}

void Tmy_Clickable::MouseUp(uint32_t keys, int x, int y) {
  MouseMove(keys, x, y);
  const bool clicked = pressed_ && inside_;
  pressed_ = false;
  Repaint();
  if (clicked) Click();
}

void Tmy_Clickable::MouseLeft() {
  SetInside(false);
}

void Tmy_Clickable::SetInside(bool inside) {
  if (inside == inside_) return;
  inside_ = inside;
  Repaint();
}

// The owner may lose the mouse without telling: a press counts only while it has it.
bool Tmy_Clickable::IsPressed() const {
  const TmyComponent* owner = GetParent();
  return pressed_ && inside_ && IsEnabled() && owner && GetCapture() == owner->Handle();
}

bool Tmy_Clickable::KeyDown(uint32_t key, LPARAM flags) {
  if (key != VK_SPACE || ListKeys::IsWithAlt(flags)) return false;
  if (!ListKeys::IsRepeated(flags)) Click();
  return true;
}

int Tmy_Clickable::CaptionWidth() const {
  std::string shown;
  const std::string_view caption = caption_.View();
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    shown += caption[i];
  }
  return Theme().TextWidth(shown);
}

SIZE Tmy_Clickable::MarkedSize() const {
  const int caption = caption_.IsEmpty() ? 0 : Theme().Scaled(kMarkGap) + CaptionWidth() + kFocusGap + 1;
  return {Theme().Scaled(kMarkSize) + caption, Theme().RowHeight() + 2};
}

RECT Tmy_Clickable::MarkArea() const {
  const int size = Theme().Scaled(kMarkSize);
  const int top = (Height() - size) / 2;
  return {0, top, size, top + size};
}

void Tmy_Clickable::PaintMarkedCaption(HDC dc) const {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT mark = MarkArea();
  RECT focus = mark;
  if (!caption_.IsEmpty()) {
    const RECT place = {mark.right + Theme().Scaled(kMarkGap), 0, Width(), Height()};
    ThemeDraw::Text(dc, place, caption_.View(), IsEnabled() ? color.text : color.disabled,
                    Theme().Get(TmyTheme::Font::kMessage), DT_LEFT, true);
    const int half = Theme().TextHeight() / 2 + 1;
    focus = {place.left - kFocusGap - 1, Height() / 2 - half, place.left + CaptionWidth() + kFocusGap + 1,
             Height() / 2 + half};
    const RECT all = {0, 0, Width(), Height()};
    IntersectRect(&focus, &focus, &all);
  } else {
    InflateRect(&focus, kFocusGap, kFocusGap);
  }
  if (HasFocus()) ThemeDraw::Frame(dc, focus, color.accent);
}

COLORREF Tmy_Clickable::OutlineColor() const {
  if (!IsEnabled()) return Theme().Color().disabled;
  return IsHot() ? Theme().Color().accent : Theme().Color().secondary;
}

COLORREF Tmy_Clickable::InsideColor() const {
  if (!IsEnabled()) return Theme().Color().surface;
  if (IsPressed()) return Theme().Color().pressed;
  return IsHot() ? Theme().Color().hot : Theme().Color().field;
}

COLORREF Tmy_Clickable::FilledColor() const {
  const TmyTheme::Colors& color = Theme().Color();
  if (!IsEnabled()) return color.disabled;
  if (IsPressed()) return ThemeDraw::Mixed(color.accent, color.text, 75);
  return IsHot() ? ThemeDraw::Mixed(color.accent, color.accentText, 80) : color.accent;
}

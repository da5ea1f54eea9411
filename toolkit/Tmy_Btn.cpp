#include "toolkit/Tmy_Btn.h"

#include <algorithm>

#include "toolkit/SmoothShapes.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr int kMargin = 16;        // beside the caption, at 96 dpi
constexpr int kMinimumWidth = 64;  // at 96 dpi
constexpr int kFocusInset = 3;

}  // namespace

void Tmy_Btn::SetDefault(bool isDefault) {
  if (isDefault == default_) return;
  default_ = isDefault;
  Repaint();
}

void Tmy_Btn::Press() {
  if (IsEnabled() && IsVisible()) Click();
}

// Enter is as good as Space on a button that has the focus.
bool Tmy_Btn::KeyDown(uint32_t key, LPARAM flags) {
  return Tmy_Clickable::KeyDown(key == VK_RETURN ? VK_SPACE : key, flags);
}

SIZE Tmy_Btn::PreferredSize() const {
  const int width = CaptionWidth() + 2 * Theme().Scaled(kMargin);
  return {std::max(width, Theme().Scaled(kMinimumWidth)), Theme().FieldHeight()};
}

void Tmy_Btn::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT all = {0, 0, Width(), Height()};
  const bool isProminent = default_ && IsEnabled();
  COLORREF frame = IsHot() || HasFocus() || isProminent ? color.accent : color.line;
  const int thickness = isProminent ? std::max(2, Theme().Scaled(2)) : 1;
  SmoothShapes::Box(dc, all, InsideColor(), frame, thickness);
  const int inset = std::max(kFocusInset, thickness + 1);  // a thick frame must not swallow that of the focus
  RECT inner = all;
  InflateRect(&inner, -inset, -inset);
  if (HasFocus()) ThemeDraw::Frame(dc, inner, color.accent);
  ThemeDraw::Text(dc, all, Caption().View(), IsEnabled() ? color.text : color.disabled,
                  Theme().Get(TmyTheme::Font::kMessage), DT_CENTER, true);
}

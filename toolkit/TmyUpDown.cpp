#include "toolkit/TmyUpDown.h"

#include <windowsx.h>

#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr uintptr_t kRepeatTimer = 1;
constexpr UINT kFirstRepeatMilliseconds = 400;
constexpr UINT kRepeatMilliseconds = 60;
constexpr int kUnits = ThemeDraw::kUnits;

}  // namespace

TmyUpDown::TmyUpDown(TmyComponent& parent, TmyIntEdit& edit) : TmyPanel(parent, 0), edit_(&edit) {}

int TmyUpDown::PreferredWidth() {
  return Theme().Scaled(16);
}

TmyUpDown::Half TmyUpDown::HalfAt(int x, int y) const noexcept {
  if (x < 0 || y < 0 || x >= ClientWidth() || y >= ClientHeight()) return Half::kNone;
  return y < ClientHeight() / 2 ? Half::kUp : Half::kDown;
}

// The left edge is the field's own frame; both halves share the line between them.
void TmyUpDown::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT all = {-1, 0, ClientWidth(), ClientHeight()};
  ThemeDraw::Fill(dc, all, IsEnabled() ? color.field : color.surface);
  PaintHalf(dc, Half::kUp);
  PaintHalf(dc, Half::kDown);
  const int middle = ClientHeight() / 2;
  ThemeDraw::Fill(dc, {0, middle, ClientWidth(), middle + 1}, color.line);
  ThemeDraw::Frame(dc, all, Theme().IsHighContrast() ? color.text : color.line);
}

void TmyUpDown::PaintHalf(HDC dc, Half half) const {
  const TmyTheme::Colors& color = Theme().Color();
  const int middle = ClientHeight() / 2;
  const RECT place = half == Half::kUp ? RECT{0, 1, ClientWidth() - 1, middle}
                                       : RECT{0, middle + 1, ClientWidth() - 1, ClientHeight() - 1};
  const bool down = pressed_ == half && hot_ == half;
  if (down || (hot_ == half && pressed_ == Half::kNone)) ThemeDraw::Fill(dc, place, down ? color.pressed : color.hot);
  const int width = Theme().Scaled(7) * kUnits, height = Theme().Scaled(4) * kUnits;
  const int left = (place.left + place.right) * kUnits / 2 - width / 2;
  const int top = (place.top + place.bottom) * kUnits / 2 - height / 2;
  const int base = half == Half::kUp ? top + height : top, tip = half == Half::kUp ? top : top + height;
  const POINT points[] = {{left, base}, {left + width, base}, {left + width / 2, tip}};
  ThemeDraw::Polygon(dc, points, 3, IsEnabled() ? color.secondary : color.disabled);
}

// Whoever steps goes on in the field.
void TmyUpDown::MouseDown(uint32_t, int x, int y) {
  pressed_ = hot_ = HalfAt(x, y);
  if (pressed_ == Half::kNone) return;
  SetTimer(Handle(), kRepeatTimer, kFirstRepeatMilliseconds, nullptr);
  Repaint();
  if (GetFocus() != edit_->Handle()) edit_->TakeFocus();
  if (IsAlive()) Step(pressed_);
}

void TmyUpDown::Step(Half half) {
  edit_->Step(half == Half::kUp ? 1 : -1, false);
}

void TmyUpDown::MouseMove(uint32_t keys, int x, int y) {
  if (pressed_ != Half::kNone && (keys & MK_LBUTTON) == 0) End();  // the button went up where we could not see it
  SetHot(HalfAt(x, y));
}

void TmyUpDown::MouseUp(uint32_t, int, int) {
  End();
}

void TmyUpDown::MouseWheel(WPARAM keysAndNotches, TmyComponent*) {
  if (const int notches = static_cast<int16_t>(HIWORD(keysAndNotches)); notches != 0) edit_->Step(notches, false);
}

void TmyUpDown::Timer(uintptr_t id) {
  if (id != kRepeatTimer) return;
  if (pressed_ == Half::kNone || GetCapture() != Handle()) return End();
  SetTimer(Handle(), kRepeatTimer, kRepeatMilliseconds, nullptr);
  if (hot_ == pressed_) Step(pressed_);
}

void TmyUpDown::EnabledChanged() {
  End();
  Repaint();
}

void TmyUpDown::End() {
  if (pressed_ == Half::kNone) return;
  KillTimer(Handle(), kRepeatTimer);
  pressed_ = Half::kNone;
  Repaint();
}

void TmyUpDown::SetHot(Half half) {
  if (hot_ == half) return;
  hot_ = half;
  Repaint();
}

// A click does not take the focus to the parent first: the field would be left, and committed, at each one.
LRESULT TmyUpDown::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_MOUSELEAVE) SetHot(Half::kNone);
  if (message == WM_LBUTTONDOWN && IsAlive()) {
    SetCapture(Handle());
    MouseDown(static_cast<uint32_t>(wParam), GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
    return 0;
  }
  return TmyPanel::WndProc(message, wParam, lParam);
}

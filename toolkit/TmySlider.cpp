#include "toolkit/TmySlider.h"

#include <algorithm>

#include "toolkit/ListKeys.h"
#include "toolkit/SmoothShapes.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr int kThumbWidth = 10;  // all at 96 dpi
constexpr int kThumbHeight = 16;
constexpr int kTrackHeight = 4;
constexpr int kFocusGap = 2;  // pixels between the thumb and the focus frame

int ThumbWidth() {
  return Theme().Scaled(kThumbWidth);
}

}  // namespace

TmySlider::TmySlider(TmyComponent& parent, const char* caption)
    : TmyComponent(caption, WS_CHILD | WS_TABSTOP | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0, 0, &parent) {
  SetDoubleBuffered(true);
  SetToolTip(caption);
}

int TmySlider::PreferredHeight() {
  return Theme().Scaled(kThumbHeight) + 2 * (kFocusGap + 1);
}

void TmySlider::SetRange(int64_t maximum) {
  maximum_ = std::max<int64_t>(0, maximum);
  position_ = std::clamp<int64_t>(position_, 0, maximum_);
  Repaint();
}

// Called often, while something plays: painted anew only when the picture is another one.
void TmySlider::SetPosition(int64_t position) {
  const int before = ThumbLeft();
  position_ = std::clamp<int64_t>(position, 0, maximum_);
  if (ThumbLeft() != before) Repaint();
}

void TmySlider::SetSteps(int64_t step, int64_t page) noexcept {
  step_ = step;
  page_ = page;
}

// A focus frame must fit around the thumb at both ends.
int TmySlider::Travel() const {
  return std::max(0, ClientWidth() - ThumbWidth() - 2 * (kFocusGap + 1));
}

int TmySlider::ThumbLeft() const {
  const int64_t way = maximum_ > 0 ? position_ * Travel() / maximum_ : 0;
  return kFocusGap + 1 + static_cast<int>(way);
}

int64_t TmySlider::PositionAt(int thumbLeft) const {
  const int travel = Travel();
  return travel > 0 ? std::clamp(thumbLeft - kFocusGap - 1, 0, travel) * maximum_ / travel : 0;
}

void TmySlider::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const int height = Theme().Scaled(kTrackHeight), top = (ClientHeight() - height) / 2;
  const int left = ThumbLeft(), begin = kFocusGap + 1;
  ThemeDraw::Fill(dc, {begin, top, ClientWidth() - begin, top + height}, color.line);
  const COLORREF dead = Theme().IsHighContrast() ? color.disabled : color.line;
  const COLORREF live = IsEnabled() && maximum_ > 0 ? color.accent : dead;
  ThemeDraw::Fill(dc, {begin, top, left, top + height}, live);
  const int thumb = std::min(Theme().Scaled(kThumbHeight), ClientHeight());
  RECT area = {left, (ClientHeight() - thumb) / 2, left + ThumbWidth(), (ClientHeight() + thumb) / 2};
  SmoothShapes::Box(dc, area, live, dragging_ ? color.text : live);
  InflateRect(&area, kFocusGap + 1, kFocusGap + 1);
  if (GetFocus() == Handle()) ThemeDraw::Frame(dc, area, color.accent);
}

void TmySlider::MoveTo(int64_t position) {
  const int64_t before = position_;
  SetPosition(position);
  if (position_ != before) moved(*this);  // the owner may destroy us: nothing after it
}

void TmySlider::MouseDown(uint32_t, int x, int) {
  if (maximum_ == 0) return;
  const int left = ThumbLeft();
  dragging_ = true;
  // Beside the thumb: its middle goes to the cursor, and the drag begins there.
  grip_ = x >= left && x < left + ThumbWidth() ? x - left : ThumbWidth() / 2;
  Repaint();
  if (grip_ != x - left) MoveTo(PositionAt(x - grip_));
}

void TmySlider::MouseMove(uint32_t, int x, int) {
  if (dragging_) MoveTo(PositionAt(x - grip_));
}

// However the mouse goes: its button, another window that takes it, a dialog.
void TmySlider::EndDrag() {
  if (!dragging_) return;
  dragging_ = false;
  Repaint();
  if (!IsBeingDestroyed()) moved(*this);  // the owner may destroy us: nothing after it
}

bool TmySlider::KeyDown(uint32_t key, LPARAM flags) {
  if (dragging_ || ListKeys::IsWithAlt(flags)) return TmyComponent::KeyDown(key, flags);
  int64_t to = position_;
  switch (key) {
    case VK_LEFT:
    case VK_DOWN:
      to -= step_;
      break;
    case VK_RIGHT:
    case VK_UP:
      to += step_;
      break;
    case VK_PRIOR:
      to -= page_;
      break;
    case VK_NEXT:
      to += page_;
      break;
    case VK_HOME:
      to = 0;
      break;
    case VK_END:
      to = maximum_;
      break;
    default:
      return TmyComponent::KeyDown(key, flags);
  }
  MoveTo(to);
  return true;
}

void TmySlider::FocusChanged(bool) {
  Repaint();
}

void TmySlider::EnabledChanged() {
  if (!IsEnabled()) dragging_ = false;
  Repaint();
}

LRESULT TmySlider::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = TmyComponent::WndProc(message, wParam, lParam);
  if (message == WM_CAPTURECHANGED) EndDrag();
  return result;
}

#include "toolkit/TmyScrollBar.h"

#include <algorithm>

#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

using ScrollGeometry::Part;
using ScrollGeometry::Thumb;

constexpr uintptr_t kRepeatTimer = 1;
constexpr UINT kFirstRepeatMilliseconds = 300;
constexpr UINT kRepeatMilliseconds = 50;
constexpr int kMinimumThumb = 28;  // at 96 dpi

// A bar with half circles as ends, as wide as the rectangle's shorter side.
void DrawRounded(HDC dc, const RECT& area, COLORREF color) {
  constexpr int kUnits = ThemeDraw::kUnits;
  constexpr int kQuarter[][2] = {{0, 256}, {98, 237}, {181, 181}, {237, 98}, {256, 0}};  // sine and cosine times 256
  constexpr int kSteps = 5;
  const int left = area.left * kUnits, top = area.top * kUnits;
  const int right = area.right * kUnits, bottom = area.bottom * kUnits;
  const int radius = std::min(right - left, bottom - top) / 2;
  POINT points[4 * kSteps];
  for (int i = 0; i < kSteps; ++i) {
    const int sine = radius - kQuarter[i][0] * radius / 256, cosine = radius - kQuarter[i][1] * radius / 256;
    points[i] = {left + cosine, top + sine};
    points[kSteps + i] = {right - sine, top + cosine};
    points[2 * kSteps + i] = {right - cosine, bottom - sine};
    points[3 * kSteps + i] = {left + sine, bottom - cosine};
  }
  ThemeDraw::Polygon(dc, points, 4 * kSteps, color);
}

}  // namespace

TmyScrollBar::TmyScrollBar(TmyComponent& parent, Direction direction) : TmyPanel(parent, 0), direction_(direction) {}

int TmyScrollBar::Thickness() {
  return Theme().Scaled(14);
}

void TmyScrollBar::SetRange(int64_t total, int64_t page) {
  ScrollGeometry::Range range = {std::max<int64_t>(0, total), std::max<int64_t>(0, page), range_.position};
  range.position = ScrollGeometry::Clamped(range, range.position);
  if (range.total == range_.total && range.page == range_.page && range.position == range_.position) return;
  range_ = range;
  Repaint();
}

void TmyScrollBar::SetPosition(int64_t position) {
  const int64_t valid = ScrollGeometry::Clamped(range_, position);
  if (valid == range_.position) return;
  range_.position = valid;
  Repaint();
}

void TmyScrollBar::MoveTo(int64_t position) {
  const int64_t before = range_.position;
  SetPosition(position);
  if (range_.position != before) scrolled(*this);  // the owner may destroy us: nothing after it
}

void TmyScrollBar::ScrollBy(int64_t delta) {
  MoveTo(ScrollGeometry::Moved(range_, delta));
}

void TmyScrollBar::ScrollByNotches(int notches) {
  UINT lines = 3;
  SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  ScrollBy(ScrollGeometry::WheelDistance(notches, lines, line_, range_.page));
}

int TmyScrollBar::Along(int x, int y) const noexcept {
  return direction_ == Direction::kVertical ? y : x;
}

int TmyScrollBar::Track() const noexcept {
  return Along(ClientWidth(), ClientHeight());
}

Thumb TmyScrollBar::CurrentThumb() const {
  return ScrollGeometry::ThumbOf(range_, Track(), Theme().Scaled(kMinimumThumb));
}

RECT TmyScrollBar::ThumbArea() const {
  const Thumb thumb = CurrentThumb();
  const int margin = Thickness() / 4, gap = 2;  // beside the thumb, and between it and the ends of the track
  const int begin = thumb.begin + gap, end = thumb.begin + thumb.length - gap;
  // One pixel of the thickness is the line on the side of the content.
  if (direction_ == Direction::kVertical) return {1 + margin, begin, ClientWidth() - margin, end};
  return {begin, 1 + margin, end, ClientHeight() - margin};
}

COLORREF TmyScrollBar::ThumbColor() const {
  const TmyTheme::Colors& color = Theme().Color();
  if (!IsEnabled()) return color.line;
  if (state_ == State::kDragging) return color.secondary;
  if (hot_ || Theme().IsHighContrast()) return ThemeDraw::Mixed(color.disabled, color.secondary, 50);
  return ThemeDraw::Mixed(color.line, color.disabled, 50);
}

void TmyScrollBar::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT all = {0, 0, ClientWidth(), ClientHeight()};
  ThemeDraw::Fill(dc, all, color.surface);
  const bool vertical = direction_ == Direction::kVertical;
  ThemeDraw::Fill(dc, vertical ? RECT{0, 0, 1, all.bottom} : RECT{0, 0, all.right, 1}, color.line);
  if (CurrentThumb().length > 0) DrawRounded(dc, ThumbArea(), ThumbColor());
}

void TmyScrollBar::MouseDown(uint32_t, int x, int y) {
  const Thumb thumb = CurrentThumb();
  const int along = Along(x, y);
  if (thumb.length == 0) return;
  const Part part = ScrollGeometry::PartAt(thumb, along);
  if (part == Part::kThumb) {
    state_ = State::kDragging;
    grip_ = along - thumb.begin;
    Repaint();
    return;
  }
  state_ = State::kPaging;
  heldAt_ = along;
  const int64_t step = std::max<int64_t>(1, range_.page > line_ ? range_.page - line_ : range_.page);
  pageStep_ = part == Part::kBefore ? -step : step;
  SetTimer(Handle(), kRepeatTimer, kFirstRepeatMilliseconds, nullptr);
  ScrollBy(pageStep_);
}

void TmyScrollBar::MouseMove(uint32_t keys, int x, int y) {
  SetHot(true);
  if (state_ == State::kIdle) return;
  if ((keys & MK_LBUTTON) == 0) return End();  // the button went up where we could not see it
  heldAt_ = Along(x, y);
  if (state_ != State::kDragging) return;
  const int begin = heldAt_ - grip_;
  // One pixel may stand for many positions: as long as the thumb does not move, neither does the position.
  if (begin != CurrentThumb().begin) {
    MoveTo(ScrollGeometry::PositionAt(range_, Track(), Theme().Scaled(kMinimumThumb), begin));
  }
}

void TmyScrollBar::MouseUp(uint32_t, int, int) {
  End();
}

void TmyScrollBar::Timer(uintptr_t id) {
  if (id != kRepeatTimer) return;
  if (state_ != State::kPaging || GetCapture() != Handle()) return End();
  SetTimer(Handle(), kRepeatTimer, kRepeatMilliseconds, nullptr);
  const Part part = ScrollGeometry::PartAt(CurrentThumb(), heldAt_);
  // Only in the direction it began with: the thumb does not swing back and forth around the cursor.
  if (part == (pageStep_ < 0 ? Part::kBefore : Part::kAfter)) ScrollBy(pageStep_);
}

void TmyScrollBar::MouseWheel(WPARAM keysAndNotches, TmyComponent*) {
  ScrollByNotches(static_cast<int16_t>(HIWORD(keysAndNotches)));
}

void TmyScrollBar::EnabledChanged() {
  End();
  Repaint();
}

void TmyScrollBar::End() {
  if (state_ == State::kIdle) return;
  KillTimer(Handle(), kRepeatTimer);
  state_ = State::kIdle;
  Repaint();
}

void TmyScrollBar::SetHot(bool hot) {
  if (hot_ != hot) Repaint();
  hot_ = hot;
}

LRESULT TmyScrollBar::EraseBackground(HDC) {
  return 1;
}  // Paint covers everything

LRESULT TmyScrollBar::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_MOUSELEAVE) SetHot(false);
  return TmyPanel::WndProc(message, wParam, lParam);
}

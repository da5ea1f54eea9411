#include "toolkit/TmySplitter.h"

#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

using SplitterGeometry::Keeps;

namespace {

constexpr int kGripLength = 28;  // of the mark in the bar's middle, at 96 dpi

}  // namespace

TmySplitter::TmySplitter(TmyComponent& parent, Keeps keeps) : TmySplitter(parent, keeps, Direction::kUpDown) {}

TmySplitter::TmySplitter(TmyComponent& parent, Keeps keeps, Direction direction)
    : TmyPanel(parent, WS_VISIBLE | WS_TABSTOP), direction_(direction), keeps_(keeps) {}

int TmySplitter::Thickness() {
  return Theme().Scaled(7);
}

void TmySplitter::SetLeast(int first, int second) noexcept {
  firstLeast_ = first;
  secondLeast_ = second;
}

SplitterGeometry::Space TmySplitter::Space() const {
  const bool upDown = direction_ == Direction::kUpDown;
  const int total = upDown ? area_.bottom - area_.top : area_.right - area_.left;
  return {total, Thickness(), firstLeast_, secondLeast_};
}

RECT TmySplitter::Stretch(int from, int to) const noexcept {
  if (direction_ == Direction::kUpDown) return {area_.left, area_.top + from, area_.right, area_.top + to};
  return {area_.left + from, area_.top, area_.left + to, area_.bottom};
}

void TmySplitter::Place(const RECT& area) {
  area_ = area;
  parts_ = SplitterGeometry::Divided(Space(), keeps_, wanted_);
  const RECT bar = Stretch(parts_.first, parts_.first + Thickness());
  SetBounds(bar.left, bar.top, bar.right - bar.left, bar.bottom - bar.top);
}

RECT TmySplitter::First() const noexcept {
  return Stretch(0, parts_.first);
}

RECT TmySplitter::Second() const noexcept {
  return Stretch(Space().total - parts_.second, Space().total);
}

void TmySplitter::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT all = {0, 0, ClientWidth(), ClientHeight()};
  const bool focused = GetFocus() == Handle();
  ThemeDraw::Fill(dc, all, dragging_ ? color.pressed : hot_ ? color.hot : color.surface);
  const int middle = Along(ClientHeight(), ClientWidth()) / 2;  // across the way of the bar
  const int half = Theme().Scaled(kGripLength) / 2, at = Along(ClientWidth(), ClientHeight()) / 2;
  const RECT grip = direction_ == Direction::kUpDown ? RECT{middle - half, at - 1, middle + half, at + 1}
                                                     : RECT{at - 1, middle - half, at + 1, middle + half};
  ThemeDraw::Fill(dc, grip, focused || dragging_ ? color.accent : color.disabled);
  if (focused) ThemeDraw::Frame(dc, all, color.accent);
}

void TmySplitter::MoveBy(int distance) {
  const int first = parts_.first + distance, both = parts_.first + parts_.second;
  const SplitterGeometry::Parts parts =
      SplitterGeometry::Divided(Space(), keeps_, keeps_ == Keeps::kFirst ? first : both - first);
  if (parts.first == parts_.first) return;
  wanted_ = keeps_ == Keeps::kFirst ? parts.first : parts.second;
  Place(area_);
  moved(*this);
}

void TmySplitter::MouseDown(uint32_t, int x, int y) {
  dragging_ = true;
  grip_ = Along(x, y);
  Repaint();
}

// The bar moves under the cursor, so its own coordinates tell how far the cursor is ahead of it.
void TmySplitter::MouseMove(uint32_t keys, int x, int y) {
  if (!hot_) Repaint();
  hot_ = true;
  if (!dragging_) return;
  if ((keys & MK_LBUTTON) == 0) return End();  // the button went up where we could not see it
  MoveBy(Along(x, y) - grip_);
}

void TmySplitter::MouseUp(uint32_t, int, int) {
  if (dragging_) End();
}

void TmySplitter::End() {
  dragging_ = false;
  Repaint();
}

bool TmySplitter::KeyDown(uint32_t key, LPARAM flags) {
  const bool upDown = direction_ == Direction::kUpDown;
  const bool back = key == (upDown ? VK_UP : VK_LEFT), ahead = key == (upDown ? VK_DOWN : VK_RIGHT);
  if (!back && !ahead) return TmyPanel::KeyDown(key, flags);
  MoveBy(back ? -Theme().Step() : Theme().Step());
  return true;
}

void TmySplitter::FocusChanged(bool focused) {
  TmyPanel::FocusChanged(focused);
  Repaint();
}

HCURSOR TmySplitter::GetCursor() const {
  return LoadCursorA(nullptr, direction_ == Direction::kUpDown ? IDC_SIZENS : IDC_SIZEWE);
}

LRESULT TmySplitter::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_MOUSELEAVE && hot_) {
    hot_ = false;
    Repaint();
  }
  return TmyPanel::WndProc(message, wParam, lParam);
}

#include "toolkit/ProgressBar.h"

#include <algorithm>

#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr UINT_PTR kRunTimer = 1;
constexpr UINT kRunMilliseconds = 30;
constexpr uint32_t kRunSteps = 50;  // from one end to the other

}  // namespace

ProgressBar::ProgressBar(TmyComponent& parent) : TmyPanel(parent, WS_VISIBLE) {
  RunWhileUnknown();
}

int ProgressBar::PreferredHeight() {
  return Theme().Scaled(8);
}

void ProgressBar::SetRange(uint32_t range) {
  if (range == range_) return;
  range_ = range;
  RunWhileUnknown();
  RepaintIfMoved();
}

void ProgressBar::SetPosition(uint32_t position) {
  position_ = position;
  RepaintIfMoved();
}

// A hidden bar costs nothing.
void ProgressBar::RunWhileUnknown() {
  if (!IsAlive()) return;
  if (IsRunning() && IsVisible()) {
    SetTimer(Handle(), kRunTimer, kRunMilliseconds, nullptr);
  } else {
    KillTimer(Handle(), kRunTimer);
  }
}

void ProgressBar::EnabledChanged() {
  Repaint();
}

void ProgressBar::ShowChanged(bool) {
  RunWhileUnknown();
}

void ProgressBar::Timer(uintptr_t) {
  step_ = (step_ + 1) % (2 * kRunSteps);
  RepaintIfMoved();
}

// The part that runs is a quarter of the track.
ProgressBar::Stretch ProgressBar::Filled() const {
  const int width = ClientWidth();
  if (!IsRunning()) {
    const uint64_t done = std::min(position_, range_);
    return {0, static_cast<int>(done * static_cast<uint64_t>(width) / range_)};
  }
  const uint32_t from = step_ <= kRunSteps ? step_ : 2 * kRunSteps - step_;
  const int left = MulDiv(width - width / 4, static_cast<int>(from), static_cast<int>(kRunSteps));
  return {left, left + width / 4};
}

void ProgressBar::RepaintIfMoved() {
  if (Filled() != drawn_) Repaint();
}

void ProgressBar::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  drawn_ = Filled();
  ThemeDraw::Fill(dc, {0, 0, ClientWidth(), ClientHeight()}, color.field);
  ThemeDraw::Frame(dc, {0, 0, ClientWidth(), ClientHeight()}, color.line);
  if (drawn_.left < drawn_.right)
    ThemeDraw::Fill(dc, {drawn_.left, 0, drawn_.right, ClientHeight()}, IsEnabled() ? color.accent : color.disabled);
}

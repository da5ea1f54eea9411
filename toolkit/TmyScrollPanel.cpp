#include "toolkit/TmyScrollPanel.h"

#include <algorithm>

#include "toolkit/TmyApplication.h"

TmyScrollPanel::TmyScrollPanel(TmyComponent& parent, DWORD style)
    : TmyPanel(parent, style), bar_(new TmyScrollBar(*this, TmyScrollBar::Direction::kVertical)) {
  bar_->scrolled.Bind<&TmyScrollPanel::BarScrolled>(this);
}

// The bar takes width, which may make the content higher still, never so much lower that the bar could go again.
void TmyScrollPanel::Realign() {
  const int thickness = TmyScrollBar::Thickness();
  const bool scrolls = ContentHeight(ClientWidth()) > ClientHeight();
  contentWidth_ = std::max(0, ClientWidth() - (scrolls ? thickness : 0));
  bar_->SetLine(Theme().FieldHeight());
  bar_->SetRange(scrolls ? ContentHeight(contentWidth_) : 0, ClientHeight());
  if (scrolls) bar_->SetBounds(contentWidth_, 0, thickness, ClientHeight());
  if (scrolls != bar_->IsVisible()) bar_->Show(scrolls);
  PlaceAtPosition();
}

void TmyScrollPanel::PlaceAtPosition() {
  PlaceContent(contentWidth_, -static_cast<int>(bar_->Position()));
  Repaint();
}

void TmyScrollPanel::BarScrolled(TmyScrollBar&) {
  PlaceAtPosition();
}

void TmyScrollPanel::MouseWheel(WPARAM keysAndNotches, TmyComponent* source) {
  if (!bar_->CanScroll()) return TmyPanel::MouseWheel(keysAndNotches, source);
  bar_->ScrollByNotches(static_cast<int16_t>(HIWORD(keysAndNotches)));
}

// What the mouse presses is in view, and must not move away from under it.
void TmyScrollPanel::FocusInside(const TmyControl& focused) {
  const bool isPressed = GetKeyState(VK_LBUTTON) < 0;
  if (static_cast<const TmyControl*>(this) != &focused && IsAlive() && !isPressed) {
    POINT origin = {};
    focused.GetScreenOrigin(origin);
    ScreenToClient(Handle(), &origin);
    BringIntoView(origin.y, origin.y + focused.Height());
  }
  TmyPanel::FocusInside(focused);
}

void TmyScrollPanel::BringIntoView(int top, int bottom) {
  const int64_t before = bar_->Position();
  const int step = Theme().Step();
  bar_->SetPosition(ScrollGeometry::PositionShowing(before, bar_->Page(), before + top - step, before + bottom + step));
  if (bar_->Position() != before) PlaceAtPosition();
}

// Marlux 3. Markers that a window shows on top of itself while the user drags something in it: they take no mouse and
// no focus.
//
//   marker_ = new TmyFloatingSelection(*this);   // belongs to its window; hidden
//   marker_->ShowAt({x - 1, top, x + 1, bottom});     // on each move
//   marker_->Show(false);                             // at the end
//
// The window must not draw below its children (WS_CLIPCHILDREN).
#pragma once

#include "toolkit/myComponents.h"

// A bar in the accent colour: where something will go, or which edge is being dragged.
class TmyFloatingSelection : public TmyComponent {
 public:
  explicit TmyFloatingSelection(TmyComponent& parent);

  void ShowAt(const RECT& place);

  void Paint(HDC dc) override;
  LRESULT EraseBackground(HDC dc) override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

// A framed piece with a text: what is being dragged.
class TmyFloatingSelection2 : public TmyFloatingSelection {
 public:
  explicit TmyFloatingSelection2(TmyComponent& parent) : TmyFloatingSelection(parent) {}

  void SetText(const TmyString& text);

  void Paint(HDC dc) override;

 private:
  TmyString text_;
};

// Marlux 3. A container without a look of its own: where it shows nothing, the window below it is seen and gets the
// mouse. It moves, hides and disables a set of controls as one.
//
//   buttons_ = new TmyInvisiblePanel(*this);   // belongs to its window
//   ok_ = std::make_unique<Tmy_Btn>(*buttons_, "OK");
//
// What is seen through it is drawn anew with the panel, not with the window below: its owner repaints the panel when
// the picture behind it changes.
#pragma once

#include "toolkit/myComponents.h"

class TmyInvisiblePanel : public TmyComponent {
 public:
  explicit TmyInvisiblePanel(TmyComponent& parent);

  LRESULT EraseBackground(HDC dc) override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

// Marlux 3. A drawn push button that shows a picture instead of its caption. The caption stays what the button is
// called: it names the button for those who do not see it, and is its first tool tip.
//
//   Tmy_Btn2 play_{*this, "Play", &TransportGlyphs::Play};
//   play_.clicked.Bind<&Player::PlayClicked>(this);
#pragma once

#include "toolkit/Tmy_Btn.h"

class Tmy_Btn2 : public Tmy_Btn {
 public:
  // Paints the picture into a square of the button's own, in one colour.
  using Glyph = void (*)(HDC dc, const RECT& square, COLORREF color);

  Tmy_Btn2(TmyComponent& owner, const TmyString& caption, Glyph glyph) : Tmy_Btn(owner, caption), glyph_(glyph) {
    SetToolTip(caption);
  }

  // Another name and tool tip for the same button, for what a click does now.
  void SetMeaning(const TmyString& caption);
  // Looks held down: what the button switches is on. Clicks are as ever.
  void SetLit(bool lit);
  // In place of the theme's text colour; CLR_INVALID takes that one again.
  void SetGlyphColor(COLORREF color);

  void Paint(HDC dc) override;
  [[nodiscard]] SIZE PreferredSize() const override;  // a little wider than high

 private:
  Glyph glyph_;
  COLORREF glyphColor_ = CLR_INVALID;
  bool lit_ = false;
};

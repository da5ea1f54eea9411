// Marlux 3. A panel whose content may be higher than the panel: a scroll bar of its own comes as soon as it is, and a
// control that gets the keyboard focus is brought into view, unless it gets it by a click.
//
// A class that derives from it says how high its content is and places it:
//
//   int ContentHeight(int width) const override;        // pixels, for a width that the bar may have made smaller
//   void PlaceContent(int width, int top) override;     // lays out its controls, `top` being 0 or negative
//
// It calls Realign() when its content became another one.
#pragma once

#include "toolkit/TmyScrollBar.h"

class TmyScrollPanel : public TmyPanel {
 public:
  TmyScrollPanel(TmyComponent& parent, DWORD style);

  [[nodiscard]] virtual int ContentHeight(int width) const = 0;

  void Realign() override;
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  void FocusInside(const TmyControl& focused) override;

  void BringIntoView(int top, int bottom);  // client coordinates as they are now
  [[nodiscard]] bool IsScrollable() const noexcept { return bar_->IsVisible(); }
  [[nodiscard]] TmyScrollBar& Bar() noexcept { return *bar_; }

 protected:
  virtual void PlaceContent(int width, int top) = 0;

 private:
  void BarScrolled(TmyScrollBar& bar);
  void PlaceAtPosition();

  TmyScrollBar* bar_;  // belongs to its window; holds the scroll position in pixels
  int contentWidth_ = 0;
};

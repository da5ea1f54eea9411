// Marlux 3. The strip that tells how many broadcasts are shown of how many and, left of that, a note when there is one.
#pragma once

#include "toolkit/TmyPanel.h"

class StatusBar : public TmyPanel {
 public:
  explicit StatusBar(TmyComponent& parent);

  void SetCounts(uint32_t shown, uint32_t all);
  void SetNote(const TmyString& note);  // stays until the next one; empty: none
  [[nodiscard]] bool HasNote() const noexcept { return !note_.IsEmpty(); }
  // Of the counts alone. The owner is asked to lay itself out anew when this changes, or when a note comes or goes.
  [[nodiscard]] int PreferredWidth() const;
  [[nodiscard]] int PreferredHeight() const;
  // The texts stand in the middle between two heights inside, beside what is on the line there.
  void Place(const RECT& bounds, int lineTop, int lineBottom);
  void Paint(HDC dc) override;

 private:
  TmyString text_;
  TmyString widest_;  // the counts while all broadcasts are shown
  TmyString note_;
  int lineTop_ = 0;
  int lineBottom_ = 0;
};

// Marlux 3. A text in a window of its own, broken into lines where its width ends: for explanations of more than one
// line, and where a label must lie on top of other windows. Tmy_Label is the one for a single drawn line.
#pragma once

#include "toolkit/TmyPanel.h"

class TmyLabel : public TmyPanel {
 public:
  explicit TmyLabel(TmyComponent& parent, const TmyString& text = {});  // visible, without bounds

  [[nodiscard]] const TmyString& Text() const noexcept { return text_; }
  void SetText(const TmyString& text);
  void SetSecondary(bool secondary);  // in the colour of what matters less

  [[nodiscard]] SIZE SizeFor(int most) const;  // pixels of all lines, no wider than the longest needs

  void Paint(HDC dc) override;
  void EnabledChanged() override;

 private:
  TmyString text_;
  bool secondary_ = false;
};

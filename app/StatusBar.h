// Marlux 3. The strip below the grid: how many broadcasts are shown of how many.
#pragma once

#include "toolkit/TmyPanel.h"

class StatusBar : public TmyPanel {
 public:
  explicit StatusBar(TmyComponent& parent);

  void SetCounts(uint32_t shown, uint32_t all);
  [[nodiscard]] int PreferredHeight() const;
  void Paint(HDC dc) override;

 private:
  TmyString text_;
};

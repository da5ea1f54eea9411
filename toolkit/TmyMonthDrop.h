// Marlux 3. The month that a date picker drops down: six weeks, and arrows to other months. The picker feeds it keys:
// arrows go by days and weeks, Page Up and Page Down by months (with Ctrl by years), Home and End to the ends of the
// month. A click on a day chooses it, the wheel turns months.
#pragma once

#include "toolkit/CalendarMath.h"
#include "toolkit/TmyDropWindow.h"

class TmyMonthDrop : public TmyDropWindow {
 public:
  TmyMonthDrop(TmyComponent& field, CalendarMath::Date date);

  [[nodiscard]] CalendarMath::Date Selected() const noexcept { return date_; }
  void Open() override;
  bool MoveByKey(uint32_t key, bool control);  // true: one of its keys

  void Paint(HDC dc) override;
  LRESULT EraseBackground(HDC) override { return 1; }  // Paint covers everything
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;

 protected:
  void CapturedMouse(UINT message, uint32_t keys, POINT screen) override;

 private:
  [[nodiscard]] RECT AreaOf(int spot) const;  // a cell or an arrow
  [[nodiscard]] int SpotAt(POINT screen) const;
  void Select(CalendarMath::Date date);
  void PaintHeader(HDC dc) const;
  void PaintWeekdays(HDC dc) const;
  void PaintDay(HDC dc, int cell) const;

  CalendarMath::Date date_;
  CalendarMath::Date today_;
  unsigned firstWeekday_;  // 0 is Sunday
  int hot_;                // the spot under the cursor
  int cellWidth_ = 0;
};

// Marlux 3. A slim scroll bar: a rounded thumb on a light track, without arrow buttons. The thumb is dragged, a click
// in the track pages (again and again while held), the wheel moves it by lines. Never takes the keyboard focus; the
// keys are its owner's. Stays where it is when there is nothing to scroll (it then shows the empty track): hiding it is
// the owner's business.
//
//   bar_ = new TmyScrollBar(*this, TmyScrollBar::Direction::kVertical);   // belongs to its window
//   bar_->scrolled.Bind<&MyList::BarScrolled>(this);
//   bar_->SetBounds(width - bar_->Thickness(), 0, bar_->Thickness(), height);
//   bar_->SetRange(rowCount, visibleRows);
//   bar_->Show(bar_->CanScroll());
#pragma once

#include "toolkit/ScrollGeometry.h"
#include "toolkit/TmyPanel.h"

class TmyScrollBar : public TmyPanel {
 public:
  enum class Direction { kVertical, kHorizontal };

  TmyScrollBar(TmyComponent& parent, Direction direction);

  // The user moved the position. Not raised by the Set functions.
  TmyEvent<TmyScrollBar&> scrolled;

  // What there is and how much of it is shown at once, in the owner's unit (rows, pixels); negative counts as 0.
  // The position is kept as far as it stays valid.
  void SetRange(int64_t total, int64_t page);
  void SetPosition(int64_t position);                    // brought into the range
  void SetLine(int64_t line) noexcept { line_ = line; }  // how far one line of the wheel's setting moves; 1 at first
  [[nodiscard]] int64_t Position() const noexcept { return range_.position; }
  [[nodiscard]] int64_t MaxPosition() const noexcept { return ScrollGeometry::MaxPosition(range_); }
  [[nodiscard]] int64_t Page() const noexcept { return range_.page; }
  [[nodiscard]] bool CanScroll() const noexcept { return MaxPosition() > 0; }
  [[nodiscard]] bool IsDragging() const noexcept { return state_ == State::kDragging; }

  // As if the user had done it: raises `scrolled` when the position changes.
  void ScrollBy(int64_t delta);
  void ScrollByNotches(int notches);  // of the wheel, positive towards the start, by the user's setting

  // The width of a vertical bar, the height of a horizontal one.
  [[nodiscard]] static int Thickness();

  void Paint(HDC dc) override;
  void MouseDown(uint32_t keys, int x, int y) override;
  void MouseMove(uint32_t keys, int x, int y) override;
  void MouseUp(uint32_t keys, int x, int y) override;
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  void Timer(uintptr_t id) override;
  void EnabledChanged() override;
  [[nodiscard]] bool CanFocus() const override { return false; }
  LRESULT EraseBackground(HDC dc) override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  enum class State { kIdle, kDragging, kPaging };

  [[nodiscard]] int Along(int x, int y) const noexcept;  // pixels from the start of the track
  [[nodiscard]] int Track() const noexcept;
  [[nodiscard]] ScrollGeometry::Thumb CurrentThumb() const;
  [[nodiscard]] COLORREF ThumbColor() const;
  [[nodiscard]] RECT ThumbArea() const;
  void MoveTo(int64_t position);
  void End();
  void SetHot(bool hot);

  Direction direction_;
  ScrollGeometry::Range range_;
  int64_t line_ = 1;
  State state_ = State::kIdle;
  int grip_ = 0;          // dragging: from the thumb's begin to the cursor
  int heldAt_ = 0;        // paging: the place along the track
  int64_t pageStep_ = 0;  // paging: signed
  bool hot_ = false;
};

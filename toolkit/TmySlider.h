// Marlux 3. A horizontal slider: a thumb on a track, moved with the mouse (dragging it, or a click beside it, which
// takes it there) and with the keys: arrows a step, Page keys a page, Home and End to the ends.
//
//   slider_ = new TmySlider(*this, "Position");            // belongs to its window
//   slider_->moved.Bind<&Player::SliderMoved>(this);
//   slider_->SetRange(lengthMilliseconds);
#pragma once

#include "toolkit/TmyPanel.h"

class TmySlider : public TmyComponent {
 public:
  TmySlider(TmyComponent& parent, const char* caption);  // the caption names the slider, in its tool tip too

  // The user moved the thumb. While IsDragging() more is to come; a drag ends with one more event, without it.
  // Not raised by the Set functions.
  TmyEvent<TmySlider&> moved;

  // Positions are 0 to `maximum`, in the owner's unit; a negative maximum counts as 0. The position is brought into it.
  void SetRange(int64_t maximum);
  void SetPosition(int64_t position);  // brought into the range
  void SetSteps(int64_t step, int64_t page) noexcept;
  [[nodiscard]] int64_t Position() const noexcept { return position_; }
  [[nodiscard]] int64_t Maximum() const noexcept { return maximum_; }
  [[nodiscard]] bool IsDragging() const noexcept { return dragging_; }

  [[nodiscard]] static int PreferredHeight();

  void Paint(HDC dc) override;
  void MouseDown(uint32_t keys, int x, int y) override;
  void MouseMove(uint32_t keys, int x, int y) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;
  void FocusChanged(bool focused) override;
  void EnabledChanged() override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  [[nodiscard]] int Travel() const;     // pixels that the thumb can move
  [[nodiscard]] int ThumbLeft() const;  // pixels
  [[nodiscard]] int64_t PositionAt(int thumbLeft) const;
  void MoveTo(int64_t position);  // by the user
  void EndDrag();

  int64_t maximum_ = 0;
  int64_t position_ = 0;
  int64_t step_ = 1;
  int64_t page_ = 10;
  int grip_ = 0;  // dragging: pixels from the thumb's left to the cursor
  bool dragging_ = false;
};

// Marlux 3. A window that hangs below its field while the user chooses something in it: what drop-down lists and
// calendars share. It holds the mouse, so that a click anywhere else is noticed, and closes when its field moves, hides
// or loses the mouse; the keyboard stays with the field.
//
// Life: made when it opens, destroyed when it closes, with its field or with the top-level window at the latest.
#pragma once

#include "toolkit/myComponents.h"

class TmyDropWindow : public TmyComponent {
 public:
  explicit TmyDropWindow(TmyComponent& field);  // outlives the events' use

  TmyEvent<> chosen;     // the user took what it shows as chosen
  TmyEvent<> dismissed;  // closed without a choice: clicked elsewhere, moved away, capture lost
  TmyEvent<> gone;       // destroyed by somebody else than the field

  virtual void Open() = 0;
  [[nodiscard]] bool IsUnderCursor() const;

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Timer(uintptr_t id) override;

 protected:
  void OpenAt(const RECT& place);                                             // screen
  [[nodiscard]] const RECT& FieldPlace() const noexcept { return fieldAt_; }  // screen, when it opened
  [[nodiscard]] RECT WorkArea() const;                                        // around the field
  void Dismiss();
  // The mouse, in screen coordinates: moves and releases of the left button wherever they happen, presses of it inside.
  virtual void CapturedMouse(UINT message, uint32_t keys, POINT screen) = 0;
  void Destroying() override;

 private:
  bool MouseMessage(UINT message, WPARAM keys, LPARAM at);
  void ButtonDown(UINT message, WPARAM keys, POINT screen);

  RECT fieldAt_ = {};
};

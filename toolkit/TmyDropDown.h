// Marlux 3. The open list of a combo box: a pop-up window that is never activated. The keyboard stays with the field,
// which hands its keys on; the mouse is captured, so that a click anywhere else is noticed.
//
// Life: made when the list opens, destroyed when it closes, with its field or with the top-level window at the latest.
#pragma once

#include "toolkit/TmyListBox.h"

class TmyDropDown : public TmyComponent {
 public:
  // `field` is the window that it hangs below; it outlives the events' use.
  TmyDropDown(TmyComponent& field, const TmyLBitemList& items, int32_t selection);

  TmyEvent<int32_t> chosen;  // this item was clicked or Enter was pressed on it
  TmyEvent<> dismissed;      // closed without a choice: clicked elsewhere, moved away, capture lost
  TmyEvent<> gone;           // destroyed by somebody else than the field

  [[nodiscard]] TmyListBox& List() const noexcept { return *list_; }
  [[nodiscard]] bool IsUnderCursor() const;
  void Open(int textWidth);
  void ItemsChanged(int textWidth);

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  void Timer(uintptr_t id) override;
  void Realign() override;

 protected:
  void Destroying() override;

 private:
  enum class Area { kRows, kScrollBar, kField, kElsewhere };

  [[nodiscard]] Area AreaAt(POINT screen) const;
  bool CapturedMouse(UINT message, WPARAM keys, LPARAM at);
  void ButtonDown(UINT message, WPARAM keys, POINT screen);
  void Place(int textWidth);
  void Dismiss();
  void ListActivated(TmyListBox& list);

  TmyListBox* list_;   // belongs to its window
  RECT fieldAt_ = {};  // screen, when the list opened
};

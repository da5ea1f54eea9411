// Marlux 3. The list that a drop-down field opens. The field shows, moves and closes it and feeds it keys: the list
// never has the keyboard.
#pragma once

#include "toolkit/TmyDropWindow.h"
#include "toolkit/TmyListBox.h"

class TmyDropDown : public TmyDropWindow {
 public:
  // `field` is the window that it hangs below; `textWidth` is of the widest item with its margins.
  TmyDropDown(TmyComponent& field, const TmyLBitemList& items, int32_t selection, int textWidth);

  [[nodiscard]] TmyListBox& List() const noexcept { return *list_; }
  void Open() override;
  void ItemsChanged(int textWidth);

  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  void Realign() override;

 protected:
  void CapturedMouse(UINT message, uint32_t keys, POINT screen) override;

 private:
  [[nodiscard]] bool IsOnScrollBar(POINT screen) const;
  [[nodiscard]] RECT Place() const;
  void ListActivated(TmyListBox& list);

  TmyListBox* list_;  // belongs to its window
  int textWidth_;
};

// Marlux 3. A pop-up menu. What is chosen is posted to the menu's own hidden window, so the command runs when the
// menu's loop and the message that opened it are done.
#pragma once

#include "toolkit/TmyMenu.h"
#include "toolkit/TmyWindowBase.h"

class TmyPopupMenu : public TmyWindowBase {
 public:
  TmyPopupMenu() : TmyWindowBase("", WS_POPUP, 0, 0, 0, 0, 0, nullptr) {}

  [[nodiscard]] TmyMenu& Menu() noexcept { return menu_; }
  void Popup(TmyComponent& owner, int x, int y);  // screen pixels; returns when the menu has closed

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  TmyMenu menu_;
};

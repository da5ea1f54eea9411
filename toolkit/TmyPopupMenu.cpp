#include "toolkit/TmyPopupMenu.h"

#include "toolkit/ModulePin.h"
#include "toolkit/myComponents.h"

void TmyPopupMenu::Popup(TmyComponent& owner, int x, int y) {
  const HWND own = Handle();  // the owner, and with it this object, may be gone when the menu closes
  const ModulePin pin;
  const BOOL chosen =
      TrackPopupMenu(menu_.Handle(), TPM_RETURNCMD | TPM_RIGHTBUTTON, x, y, 0, owner.TopLevel()->Handle(), nullptr);
  if (chosen && IsWindow(own)) PostMessageA(own, WM_COMMAND, static_cast<WPARAM>(chosen), 0);
}

LRESULT TmyPopupMenu::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND && lParam == 0 && TmyMenuItem::RaiseById(LOWORD(wParam))) return 0;
  return TmyWindowBase::WndProc(message, wParam, lParam);
}

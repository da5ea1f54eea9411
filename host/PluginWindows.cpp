#include "host/PluginWindows.h"

#include <vector>

namespace {

BOOL CALLBACK Collect(HWND window, LPARAM to) {
  if (IsWindowVisible(window) && IsWindowEnabled(window)) reinterpret_cast<std::vector<HWND>*>(to)->push_back(window);
  return TRUE;
}

std::vector<HWND> All() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), &Collect, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

// 0: not in this menu, nor below.
UINT CommandOf(HMENU menu, const std::string& item) {
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    const auto at = static_cast<UINT>(i);
    char text[128] = "";
    GetMenuStringA(menu, at, text, sizeof text, MF_BYPOSITION);
    const HMENU below = GetSubMenu(menu, i);
    const bool isEnabled = (GetMenuState(menu, at, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) == 0;
    const UINT found = below ? CommandOf(below, item) : text == item && isEnabled ? GetMenuItemID(menu, i) : 0;
    if (found != 0) return found;
  }
  return 0;
}

}  // namespace

HWND PluginWindows::Find(const std::string& caption) {
  for (const HWND window : All()) {
    char text[128] = "";
    GetWindowTextA(window, text, sizeof text);
    if (text == caption) return window;
  }
  return nullptr;
}

bool PluginWindows::Choose(const std::string& item) {
  for (const HWND window : All()) {
    const HMENU menu = GetMenu(window);
    const UINT command = menu ? CommandOf(menu, item) : 0;
    if (command != 0) return PostMessageA(window, WM_COMMAND, command, 0);
  }
  return false;
}

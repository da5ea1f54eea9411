// Marlux host. The windows that a plug-in has open on our thread, for scripts that act as its user.
#pragma once

#include <windows.h>

#include <string>

namespace PluginWindows {

// The topmost one with this caption that takes input; null when there is none.
[[nodiscard]] HWND Find(const std::string& caption);
// Posts the command of the first menu item with this text ("&" included). False when no window has one that is enabled.
[[nodiscard]] bool Choose(const std::string& item);

}  // namespace PluginWindows

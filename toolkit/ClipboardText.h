// Marlux 3. The text on the clipboard.
#pragma once

#include <windows.h>

#include "foundation/TmyString.h"

// Empty when there is none or another program has the clipboard open. At most 4,096 characters: it is meant for fields.
[[nodiscard]] TmyString ClipboardText(HWND window);
// Replaces what is on the clipboard. False when it could not be done.
bool SetClipboardText(HWND window, const TmyString& text);

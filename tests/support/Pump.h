// Marlux 3. The message loop of a test that waits for something.
#pragma once

#include <windows.h>

#include <cstdint>

inline bool hasSeenQuit = false;  // a WM_QUIT is remembered, not obeyed

// False when the condition does not hold in time. All that is there is dispatched in any case.
template <class Condition>
bool PumpUntil(Condition condition, uint32_t milliseconds = 10000) {
  for (const uint32_t start = GetTickCount();; MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT)) {
    for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE); DispatchMessageA(&message)) {
      hasSeenQuit = hasSeenQuit || message.message == WM_QUIT;
      TranslateMessage(&message);
    }
    if (condition()) return true;
    if (GetTickCount() - start >= milliseconds) return false;
  }
}

inline void PumpFor(uint32_t milliseconds) {
  PumpUntil([] { return false; }, milliseconds);
}

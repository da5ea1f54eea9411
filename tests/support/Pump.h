// Marlux 3. The message loop of a test that waits for something.
#pragma once

#include <windows.h>

#include <cstdint>

// False when the condition does not hold in time.
template <class Condition>
bool PumpUntil(Condition condition, uint32_t milliseconds = 10000) {
  for (const uint32_t start = GetTickCount(); !condition() && GetTickCount() - start < milliseconds;) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageA(&message);
  }
  return condition();
}

inline void PumpFor(uint32_t milliseconds) {
  PumpUntil([] { return false; }, milliseconds);
}

// Marlux 3. The hour-glass for a block that may take a while; the cursor of before comes back at its end.
#pragma once

#include <windows.h>

class WaitCursor {
 public:
  WaitCursor() noexcept : former_(SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT)))) {}
  ~WaitCursor() { SetCursor(former_); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  HCURSOR former_;  // shared
};

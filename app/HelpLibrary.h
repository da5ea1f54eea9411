// Marlux 3. The system's HTML Help, loaded when the main window is made and given back when it goes, unless it has
// begun a thread, which nobody can end.
#pragma once

#include <windows.h>

#include "foundation/FrameFlag.h"
#include "foundation/TmyString.h"

class HelpLibrary {
 public:
  HelpLibrary() noexcept;  // without the library or its function help is inert
  ~HelpLibrary() { Unload(); }
  HelpLibrary(const HelpLibrary&) = delete;
  HelpLibrary& operator=(const HelpLibrary&) = delete;

  [[nodiscard]] bool IsAvailable() const noexcept { return show_ != nullptr; }
  void Show(HWND owner, const TmyString& file) noexcept;
  void Unload() noexcept;  // closes our help window first, unless the host has taken it over for help of its own

 private:
  [[nodiscard]] bool IsAtWork() const noexcept;

  using ShowFunction = HWND(WINAPI*)(HWND owner, LPCSTR file, UINT command, DWORD_PTR data);

  HMODULE module_ = nullptr;
  ShowFunction show_ = nullptr;
  HWND window_ = nullptr;  // the help window of the last Show; may be closed already
  HWND owner_ = nullptr;   // for which that was
  FrameFlag isShowing_;
  bool mayHaveThread_ = false;  // it showed a window of another thread, or none that tells; such a thread stays
};

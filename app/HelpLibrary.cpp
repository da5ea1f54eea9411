#include "app/HelpLibrary.h"

#include "foundation/FloatMode.h"

namespace {
constexpr UINT kDisplayTopic = 0x0000;

bool IsOurs(HWND window) noexcept {
  return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}
}  // namespace

HelpLibrary::HelpLibrary() noexcept {
  const KeptFloatMode kept;
  module_ = LoadLibraryA("hhctrl.ocx");
  if (!module_) return;
  show_ = reinterpret_cast<ShowFunction>(reinterpret_cast<void*>(GetProcAddress(module_, "HtmlHelpA")));
}

void HelpLibrary::Show(HWND owner, const TmyString& file) noexcept {
  if (!show_) return;
  const KeptFloatMode kept;
  const FrameFlag::Scope showing(isShowing_);
  owner_ = owner;
  window_ = show_(owner, file.Chars(), kDisplayTopic, 0);
  mayHaveThread_ = mayHaveThread_ || !window_ || !IsOurs(window_);
}

// It runs a loop, a box of its own, say, or its window is being moved: the host may close us from there.
bool HelpLibrary::IsAtWork() const noexcept {
  GUITHREADINFO about = {};
  about.cbSize = sizeof about;
  constexpr DWORD kLoops = GUI_INMOVESIZE | GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
  const bool isHeld = GetGUIThreadInfo(GetCurrentThreadId(), &about) && (about.flags & kLoops) != 0;
  return isShowing_.IsUp() || (window_ && isHeld);
}

void HelpLibrary::Unload() noexcept {
  const KeptFloatMode kept;
  const bool stays = IsAtWork() || mayHaveThread_;  // its code is yet to be returned to, or runs on in its thread
  if (window_ && IsWindow(window_)) {
    const HWND owner = GetWindow(window_, GW_OWNER);
    if (!owner || owner == owner_) IsOurs(window_) ? DestroyWindow(window_) : PostMessageA(window_, WM_CLOSE, 0, 0);
  }
  window_ = nullptr;
  show_ = nullptr;
  if (module_ && !stays) FreeLibrary(module_);
  module_ = nullptr;
}

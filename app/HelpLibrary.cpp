#include "app/HelpLibrary.h"

namespace {
constexpr UINT kDisplayTopic = 0x0000;
}  // namespace

HelpLibrary::HelpLibrary() noexcept : module_(LoadLibraryA("hhctrl.ocx")) {
  if (!module_) return;
  show_ = reinterpret_cast<ShowFunction>(reinterpret_cast<void*>(GetProcAddress(module_, "HtmlHelpA")));
}

void HelpLibrary::Show(HWND owner, const TmyString& file) noexcept {
  if (!show_) return;
  owner_ = owner;
  window_ = show_(owner, file.Chars(), kDisplayTopic, 0);
}

void HelpLibrary::Unload() noexcept {
  if (window_ && IsWindow(window_)) {
    const HWND owner = GetWindow(window_, GW_OWNER);
    if (!owner || owner == owner_) DestroyWindow(window_);
  }
  window_ = nullptr;
  show_ = nullptr;
  if (module_) FreeLibrary(module_);
  module_ = nullptr;
}

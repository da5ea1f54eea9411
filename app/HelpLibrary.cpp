#include "app/HelpLibrary.h"

namespace {
constexpr UINT kDisplayTopic = 0x0000;
constexpr UINT kCloseAll = 0x0012;
}  // namespace

HelpLibrary::HelpLibrary() noexcept : module_(LoadLibraryA("hhctrl.ocx")) {
  if (!module_) return;
  show_ = reinterpret_cast<ShowFunction>(reinterpret_cast<void*>(GetProcAddress(module_, "HtmlHelpA")));
}

void HelpLibrary::Show(HWND owner, const TmyString& file) noexcept {
  if (!show_) return;
  wasShown_ = true;
  show_(owner, file.Chars(), kDisplayTopic, 0);
}

void HelpLibrary::Unload() noexcept {
  if (show_ && wasShown_) show_(nullptr, nullptr, kCloseAll, 0);
  show_ = nullptr;
  if (module_) FreeLibrary(module_);
  module_ = nullptr;
}

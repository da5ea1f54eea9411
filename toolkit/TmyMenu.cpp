#include "toolkit/TmyMenu.h"

#include <new>

TmyMenu::~TmyMenu() {
  items_.clear();
  // DestroyMenu destroys submenus too: they must not be destroyed a second time.
  for (const auto& submenu : submenus_) submenu->Release();
}

TmyMenuItem& TmyMenu::AddItem(const TmyString& text) {
  return *items_.emplace_back(std::make_unique<TmyMenuItem>(menu_.get(), text));
}

TmyMenu& TmyMenu::AddSubmenu(const TmyString& text) {
  TmyMenu& submenu = *submenus_.emplace_back(std::make_unique<TmyMenu>());
  const auto handle = reinterpret_cast<UINT_PTR>(submenu.Handle());
  if (!handle || !AppendMenuA(menu_.get(), MF_POPUP | MF_STRING, handle, text.Chars())) {
    submenus_.pop_back();  // still its own: the destructor would give it up
    throw std::bad_alloc();
  }
  return submenu;
}

void TmyMenu::AddSeparator() noexcept {
  AppendMenuA(menu_.get(), MF_SEPARATOR, 0, nullptr);
}

void TmyMenu::RemoveAll() noexcept {
  items_.clear();
  while (GetMenuItemCount(menu_.get()) > 0) RemoveMenu(menu_.get(), 0, MF_BYPOSITION);
  submenus_.clear();
}

int TmyMenu::PositionOf(const TmyMenu& submenu) const noexcept {
  for (int i = GetMenuItemCount(menu_.get()) - 1; i >= 0; --i) {
    if (GetSubMenu(menu_.get(), i) == submenu.Handle()) return i;
  }
  return -1;
}

void TmyMenu::EnableSubmenu(const TmyMenu& submenu, bool enabled) noexcept {
  const int at = PositionOf(submenu);
  if (at < 0) return;
  EnableMenuItem(menu_.get(), static_cast<UINT>(at), MF_BYPOSITION | (enabled ? MF_ENABLED : MF_GRAYED | MF_DISABLED));
}

void TmyMainMenu::AttachTo(HWND window) {
  if (!SetMenu(window, Handle())) throw std::bad_alloc();
  Release();
}

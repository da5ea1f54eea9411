// Marlux 3. A menu: a list of items and submenus around one system menu. TmyMainMenu is a menu bar.
//
//   TmyMenu& file = menuBar.AddSubmenu("&File");
//   TmyMenuItem& exit = file.AddItem("E&xit");
//   exit.chosen.Bind<&TmxWindow::Exit>(this);
//
// An entry or a bar that the system refuses is a lack of memory: std::bad_alloc.
#pragma once

#include <memory>
#include <vector>

#include "toolkit/GdiHandle.h"
#include "toolkit/TmyControl.h"
#include "toolkit/TmyMenuItem.h"

class TmyMenu : public TmyControl {
 public:
  TmyMenu() : TmyMenu(CreatePopupMenu()) {}
  ~TmyMenu() override;

  TmyMenuItem& AddItem(const TmyString& text);  // at the end; lives until RemoveAll or the menu's end
  TmyMenu& AddSubmenu(const TmyString& text);
  void AddSeparator() noexcept;
  void RemoveAll() noexcept;
  [[nodiscard]] uint32_t ItemCount() const noexcept { return static_cast<uint32_t>(items_.size()); }
  [[nodiscard]] TmyMenuItem& Item(uint32_t index) noexcept { return *items_[index]; }
  void EnableSubmenu(const TmyMenu& submenu, bool enabled) noexcept;
  [[nodiscard]] HMENU Handle() const noexcept { return menu_.get(); }

 protected:
  explicit TmyMenu(HMENU menu) : menu_(menu) {}
  void Release() noexcept { static_cast<void>(menu_.release()); }  // the system destroys it with its owner

 private:
  [[nodiscard]] int PositionOf(const TmyMenu& submenu) const noexcept;

  MenuHandle menu_;
  std::vector<std::unique_ptr<TmyMenuItem>> items_;
  std::vector<std::unique_ptr<TmyMenu>> submenus_;  // their system menus belong to ours
};

// A window's menu bar. The window owns the system menu once it is attached.
class TmyMainMenu : public TmyMenu {
 public:
  TmyMainMenu() : TmyMenu(CreateMenu()) {}
  void AttachTo(HWND window);
};

// Marlux 3. One command of a menu. Menus are the system's own, so that it draws them, and so that access keys, screen
// readers and automation work; an item is our side of an entry.
#pragma once

#include <windows.h>

#include "foundation/TmyObject.h"
#include "foundation/TmyString.h"
#include "toolkit/TmyEvent.h"

class TmyMenuItem : public TmyObject {
 public:
  // Appends an entry to the menu, which must outlive the item. "&" marks the access key.
  TmyMenuItem(HMENU menu, const TmyString& text);
  ~TmyMenuItem() override;

  TmyEvent<TmyMenuItem&> chosen;

  void Enable(bool enabled) noexcept;  // off: greyed and not to be chosen
  void Check(bool checked) noexcept;
  [[nodiscard]] bool IsEnabled() const noexcept;
  [[nodiscard]] bool IsChecked() const noexcept;
  [[nodiscard]] const TmyString& Text() const noexcept { return text_; }

  // Raises the event of the enabled item that a WM_COMMAND names. False when there is none.
  [[nodiscard]] static bool RaiseById(uint16_t id);

 private:
  HMENU menu_;  // not owned
  TmyString text_;
  uint16_t id_;
};

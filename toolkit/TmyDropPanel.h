// Marlux 3. A field with a window that drops down below it to choose from: what drop-down lists and date pickers share.
//
// Opens with a click, F4, Alt+Down or Alt+Up. Enter, Tab, F4, Alt with an arrow and a click in the window take what is
// chosen there; everything else that closes it leaves the field as it was: Escape, a click elsewhere, losing the focus,
// being disabled or hidden, a window that moves. The keyboard stays with the field.
#pragma once

#include "toolkit/TmyPanel.h"

class TmyDropWindow;

class TmyDropPanel : public TmyPanel {
 public:
  using TmyPanel::TmyPanel;
  ~TmyDropPanel() override;

  [[nodiscard]] bool IsDropped() const noexcept { return drop_ != nullptr; }
  void DropDown(bool open);  // closing leaves the field as it was

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT EraseBackground(HDC) override { return 1; }  // DropField covers everything
  void MouseDown(uint32_t keys, int x, int y) override;
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;
  void EnabledChanged() override;
  void ShowChanged(bool visible) override;

 protected:
  // The window, not yet open; null to stay closed.
  [[nodiscard]] virtual TmyDropWindow* MakeDrop() = 0;
  // Closes and takes what the open window shows as chosen, which may destroy the field.
  virtual void TakeChoice() = 0;
  virtual bool DroppedKey(uint32_t key, LPARAM flags) = 0;  // while open; true: used
  virtual bool FieldKey(uint32_t key, LPARAM flags) = 0;    // while closed; true: used

  [[nodiscard]] TmyDropWindow* Drop() const noexcept { return drop_; }  // null while closed
  void Close();
  void Destroying() override;

 private:
  void DropGone();

  TmyDropWindow* drop_ = nullptr;  // belongs to its window
};

#include "toolkit/TmyDropPanel.h"

#include "toolkit/ListKeys.h"
#include "toolkit/TmyDropWindow.h"

TmyDropPanel::~TmyDropPanel() {
  Close();
}
void TmyDropPanel::Destroying() {
  Close();
}

void TmyDropPanel::DropDown(bool open) {
  if (open == IsDropped()) return;
  if (!open) return Close();
  if (!IsAlive() || !IsEnabled() || !IsWindowVisible(Handle())) return;
  const Hold hold;
  TakeFocus();
  if (!IsAlive() || IsDropped()) return;
  TmyDropWindow* drop = MakeDrop();
  if (!drop) return;
  drop_ = drop;
  drop_->chosen.Bind<&TmyDropPanel::TakeChoice>(this);
  drop_->dismissed.Bind<&TmyDropPanel::Close>(this);
  drop_->gone.Bind<&TmyDropPanel::DropGone>(this);
  drop_->Open();
  Repaint();
}

void TmyDropPanel::Close() {
  if (!drop_) return;
  TmyDropWindow* closing = drop_;
  drop_ = nullptr;  // first: destroying it takes the mouse away from it, which would ask to close again
  closing->chosen.Unbind();
  closing->dismissed.Unbind();
  closing->gone.Unbind();
  closing->Destroy();
  Repaint();
}

void TmyDropPanel::DropGone() {
  drop_ = nullptr;
  Repaint();
}

LRESULT TmyDropPanel::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  // Escape closes the window and no more, also when it is held. The dispatcher would also send it to the dialog, so it
  // does not get it.
  if (message == WM_KEYDOWN && wParam == VK_ESCAPE && (IsDropped() || ListKeys::IsRepeated(lParam))) {
    Close();
    return 0;
  }
  // The end of the click that opened it, sent by a program: it would release the mouse that the open window has.
  if (message == WM_LBUTTONUP && IsDropped()) return 0;
  if (message == WM_CANCELMODE) Close();
  return TmyPanel::WndProc(message, wParam, lParam);
}

void TmyDropPanel::MouseDown(uint32_t, int, int) {
  DropDown(!IsDropped());
}

void TmyDropPanel::MouseWheel(WPARAM keysAndNotches, TmyComponent* source) {
  if (drop_) {
    drop_->MouseWheel(keysAndNotches, source);
  } else {
    TmyPanel::MouseWheel(keysAndNotches, source);
  }
}

bool TmyDropPanel::KeyDown(uint32_t key, LPARAM flags) {
  if (!IsEnabled()) return TmyPanel::KeyDown(key, flags);
  const Hold hold;
  const bool opens = ListKeys::IsWithAlt(flags) ? key == VK_DOWN || key == VK_UP : key == VK_F4;
  if (opens) {
    IsDropped() ? TakeChoice() : DropDown(true);
    return true;
  }
  if (!IsDropped()) return FieldKey(key, flags) || TmyPanel::KeyDown(key, flags);
  if (key == VK_TAB || key == VK_RETURN) {
    TakeChoice();
    return key == VK_RETURN || !IsAlive() || TmyPanel::KeyDown(key, flags);
  }
  if (key == VK_F10) Close();        // the menu's loop would work below an open window
  if (key == VK_MENU) return false;  // it may begin Alt+Up
  return IsDropped() && DroppedKey(key, flags);
}

void TmyDropPanel::EnabledChanged() {
  if (!IsEnabled()) Close();
  Repaint();
}

void TmyDropPanel::ShowChanged(bool visible) {
  if (!visible) Close();
}

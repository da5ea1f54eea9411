#include "toolkit/TmyComboBox2.h"

#include <algorithm>

#include "foundation/Clock.h"
#include "toolkit/DropDownPlace.h"
#include "toolkit/DropField.h"
#include "toolkit/ListKeys.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyDropDown.h"

namespace {

TmyTheme& Theme() {
  return TmyApplication::Get().Theme();
}

}  // namespace

TmyComboBox2::TmyComboBox2(TmyComponent& parent, DWORD style) : TmyPanel(parent, style) {}

TmyComboBox2::~TmyComboBox2() {
  Close();
}

void TmyComboBox2::Destroying() {
  Close();
}

void TmyComboBox2::Clear() {
  Close();
  items_.Clear();
  selection_ = -1;
  search_.Reset();
  ItemsChanged();
  Repaint();
}

void TmyComboBox2::Add(const TmyString& text, uintptr_t data) {
  items_.Add(std::make_unique<TmyLBitem>(TmyLBitem{text, data}));
  ItemsChanged();
}

void TmyComboBox2::EndUpdate() {
  if (updates_ > 0) --updates_;
  ItemsChanged();
}

void TmyComboBox2::ItemsChanged() {
  textWidth_ = -1;
  if (dropDown_ && updates_ == 0) dropDown_->ItemsChanged(TextWidth());
}

void TmyComboBox2::SetSelection(int32_t index) {
  if (index < 0 || index >= Count()) index = -1;
  if (dropDown_) dropDown_->List().SetSelection(index);
  if (index == selection_) return;
  selection_ = index;
  Repaint();
}

TmyString TmyComboBox2::SelectedText() const {
  return ItemText(selection_);
}

TmyString TmyComboBox2::ItemText(int32_t index) const {
  return index >= 0 && index < Count() ? items_.Get(static_cast<uint32_t>(index))->text : TmyString();
}

uintptr_t TmyComboBox2::ItemData(int32_t index) const noexcept {
  return index >= 0 && index < Count() ? items_.Get(static_cast<uint32_t>(index))->data : 0;
}

int32_t TmyComboBox2::FindText(const TmyString& text) const noexcept {
  return ListSearch::FindExact(items_, text.View());
}

TmyListBox* TmyComboBox2::OpenList() const noexcept {
  return dropDown_ ? &dropDown_->List() : nullptr;
}

// Measured when the list opens for the first time: filling would have to do it for every item.
int TmyComboBox2::TextWidth() {
  if (textWidth_ >= 0) return textWidth_;
  const HDC screen = GetDC(nullptr);
  LONG widest = 0;
  {
    const Selected font(screen, Font());
    for (uint32_t i = 0; i < items_.Count(); ++i) {
      const std::string_view text = items_.Get(i)->text.View();
      SIZE size = {};
      GetTextExtentPoint32A(screen, text.data(), static_cast<int>(text.size()), &size);
      widest = std::max(widest, size.cx);
    }
  }
  ReleaseDC(nullptr, screen);
  textWidth_ = static_cast<int>(widest) + 2 * TmyListBox::TextInset();
  return textWidth_;
}

void TmyComboBox2::DropDown(bool open) {
  if (open == IsDropped()) return;
  if (!open) {
    Close();
    return;
  }
  if (!IsAlive() || !IsEnabled() || !IsWindowVisible(Handle())) return;
  TakeFocus();
  if (!IsAlive() || IsDropped()) return;
  search_.Reset();
  dropDown_ = new TmyDropDown(*this, items_, selection_);
  dropDown_->chosen.Bind<&TmyComboBox2::Choose>(this);
  dropDown_->dismissed.Bind<&TmyComboBox2::Close>(this);
  dropDown_->gone.Bind<&TmyComboBox2::DropDownGone>(this);
  dropDown_->Open(TextWidth());
  Repaint();
}

void TmyComboBox2::Close() {
  if (!dropDown_) return;
  TmyDropDown* closing = dropDown_;
  dropDown_ = nullptr;  // first: destroying it takes the mouse away from it, which would ask to close again
  closing->chosen.Unbind();
  closing->dismissed.Unbind();
  closing->gone.Unbind();
  closing->Destroy();
  Repaint();
}

void TmyComboBox2::DropDownGone() {
  dropDown_ = nullptr;
  Repaint();
}

void TmyComboBox2::Choose(int32_t index) {
  Close();
  if (index < 0 || index == selection_) return;
  SetSelection(index);
  changed(*this);
}

void TmyComboBox2::ChooseListRow() {
  Choose(dropDown_->List().Selection());
}

LRESULT TmyComboBox2::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  // Escape closes the list and no more. The dispatcher would also send it to the dialog, so it does not get it.
  if (message == WM_KEYDOWN && wParam == VK_ESCAPE && IsDropped()) {
    Close();
    return 0;
  }
  // The end of the click that opened the list, sent by a program: it would release the mouse that the list has.
  if (message == WM_LBUTTONUP && IsDropped()) return 0;
  if (message == WM_CANCELMODE) Close();
  return TmyPanel::WndProc(message, wParam, lParam);
}

void TmyComboBox2::MouseDown(uint32_t, int, int) {
  DropDown(!IsDropped());
}

void TmyComboBox2::MouseWheel(WPARAM keysAndNotches, TmyComponent* source) {
  if (dropDown_) {
    dropDown_->MouseWheel(keysAndNotches, source);
  } else {
    TmyPanel::MouseWheel(keysAndNotches, source);
  }
}

bool TmyComboBox2::KeyDown(uint32_t key, LPARAM flags) {
  if (!IsEnabled()) return TmyPanel::KeyDown(key, flags);
  const bool opens = ListKeys::IsWithAlt(flags) ? key == VK_DOWN || key == VK_UP : key == VK_F4;
  if (opens && IsDropped()) {
    ChooseListRow();
    return true;
  }
  if (opens) {
    DropDown(true);
    return true;
  }
  if (IsDropped()) return DroppedKey(key, flags);
  const int32_t target = ListKeys::Target(key, flags, selection_, Count(), DropDownPlace::kMaximumRows);
  if (target == ListKeys::kNotAListKey) return TmyPanel::KeyDown(key, flags);
  search_.Reset();
  Choose(target);
  return true;
}

bool TmyComboBox2::DroppedKey(uint32_t key, LPARAM flags) {
  const Hold hold;
  switch (key) {
    case VK_TAB:
      ChooseListRow();
      return !IsAlive() || TmyPanel::KeyDown(key, flags);
    case VK_RETURN:
      ChooseListRow();
      return true;
    case VK_MENU:
    case VK_F10:
      // Alt alone may begin Alt+Up; the menu's loop would work below an open list.
      if (key == VK_F10) Close();
      return false;
    default:
      return dropDown_->List().KeyDown(key, flags);
  }
}

void TmyComboBox2::Char(char& character, LPARAM flags) {
  if (!IsEnabled()) return;
  if (dropDown_) {
    dropDown_->List().Char(character, flags);
    return;
  }
  if (!search_.Type(character, Clock::Ticks())) return TmyPanel::Char(character, flags);
  character = 0;
  Choose(ListSearch::FindPrefix(items_, search_.Text().View()));
}

void TmyComboBox2::FocusChanged(bool focused) {
  if (!focused) Close();
  Repaint();
}

void TmyComboBox2::EnabledChanged() {
  if (!IsEnabled()) Close();
  Repaint();
}

void TmyComboBox2::ShowChanged(bool visible) {
  if (!visible) Close();
}

void TmyComboBox2::ThemeChanged() {
  Close();
  textWidth_ = -1;
  TmyPanel::ThemeChanged();
}

void TmyComboBox2::Paint(HDC dc) {
  const bool enabled = IsEnabled();
  const RECT place = DropField::Paint(dc, {0, 0, ClientWidth(), ClientHeight()}, enabled, HasKeyboard() || IsDropped());
  if (place.right <= place.left) return;
  const TmyTheme::Colors& color = Theme().Color();
  ThemeDraw::Text(dc, place, SelectedText().View(), enabled ? color.text : color.disabled, Font());
}

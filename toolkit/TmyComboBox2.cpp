#include "toolkit/TmyComboBox2.h"

#include <algorithm>

#include "foundation/Clock.h"
#include "toolkit/DropDownPlace.h"
#include "toolkit/DropField.h"
#include "toolkit/ListKeys.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyDropDown.h"

TmyComboBox2::TmyComboBox2(TmyComponent& parent, DWORD style) : TmyDropPanel(parent, style) {}

TmyComboBox2::~TmyComboBox2() {
  Close();  // the open list looks at our items
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
  if (TmyDropDown* open = OpenDrop(); open && updates_ == 0) open->ItemsChanged(TextWidth());
}

void TmyComboBox2::SetSelection(int32_t index) {
  if (index < 0 || index >= Count()) index = -1;
  if (TmyListBox* list = OpenList()) list->SetSelection(index);
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

TmyDropDown* TmyComboBox2::OpenDrop() const noexcept {
  return dynamic_cast<TmyDropDown*>(Drop());
}

TmyListBox* TmyComboBox2::OpenList() const noexcept {
  const TmyDropDown* open = OpenDrop();
  return open ? &open->List() : nullptr;
}

// Measured when the list opens for the first time: filling would have to do it for every item.
int TmyComboBox2::TextWidth() {
  if (textWidth_ >= 0) return textWidth_;
  const WindowDc screen(nullptr);
  LONG widest = 0;
  {
    const Selected font(screen.Get(), Font());
    for (uint32_t i = 0; i < items_.Count(); ++i) {
      const std::string_view text = items_.Get(i)->text.View();
      SIZE size = {};
      GetTextExtentPoint32A(screen.Get(), text.data(), static_cast<int>(text.size()), &size);
      widest = std::max(widest, size.cx);
    }
  }
  textWidth_ = static_cast<int>(widest) + 2 * TmyListBox::TextInset();
  return textWidth_;
}

TmyDropWindow* TmyComboBox2::MakeDrop() {
  if (Count() == 0) return nullptr;  // a list of nothing is a riddle
  search_.Reset();
  return new TmyDropDown(*this, items_, selection_, TextWidth());
}

void TmyComboBox2::TakeChoice() {
  const int32_t index = OpenList()->Selection();
  const bool isAgain = index >= 0 && index == selection_;
  Choose(index);
  if (isAgain) chosenAgain(*this);
}

void TmyComboBox2::Choose(int32_t index) {
  Close();
  if (index < 0 || index == selection_) return;
  SetSelection(index);
  changed(*this);
}

bool TmyComboBox2::DroppedKey(uint32_t key, LPARAM flags) {
  return OpenList()->KeyDown(key, flags);
}

bool TmyComboBox2::FieldKey(uint32_t key, LPARAM flags) {
  const int32_t target = ListKeys::Target(key, flags, selection_, Count(), DropDownPlace::kMaximumRows);
  if (target == ListKeys::kNotAListKey) return false;
  search_.Reset();
  Choose(target);
  return true;
}

void TmyComboBox2::Char(char& character, LPARAM flags) {
  if (!IsEnabled()) return;
  if (TmyListBox* list = OpenList()) return list->Char(character, flags);
  if (!search_.Type(character, Clock::Ticks())) return TmyDropPanel::Char(character, flags);
  character = 0;
  Choose(ListSearch::FindPrefix(items_, search_.Text().View()));
}

void TmyComboBox2::FocusChanged(bool focused) {
  if (!focused) Close();
  Repaint();
}

void TmyComboBox2::ThemeChanged() {
  Close();
  textWidth_ = -1;
  TmyDropPanel::ThemeChanged();
}

void TmyComboBox2::Paint(HDC dc) {
  const bool enabled = IsEnabled();
  const RECT place = DropField::Paint(dc, {0, 0, ClientWidth(), ClientHeight()}, enabled, HasKeyboard() || IsDropped());
  if (place.right <= place.left) return;
  const TmyTheme::Colors& color = Theme().Color();
  ThemeDraw::Text(dc, place, SelectedText().View(), enabled ? color.text : color.disabled, Font());
}

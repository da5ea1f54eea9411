// Marlux 3. A field that shows one text of a list and drops the list down to choose another.
//
//   auto* stations = new TmyComboBox2(panel, WS_VISIBLE | WS_TABSTOP);   // belongs to its window
//   for (const TmyString& name : names) stations->Add(name);
//   stations->changed.Bind<&FilterPanel::StationChanged>(this);
//
// While closed, arrows, Page, Home, End and typing choose at once.
#pragma once

#include "toolkit/TmyDropPanel.h"
#include "toolkit/TmyLBitem.h"
#include "toolkit/TypeSearch.h"

class TmyDropDown;
class TmyListBox;

class TmyComboBox2 : public TmyDropPanel {
 public:
  explicit TmyComboBox2(TmyComponent& parent, DWORD style = WS_TABSTOP);
  ~TmyComboBox2() override;

  TmyEvent<TmyComboBox2&> changed;      // the user chose another item; not raised by SetSelection, Clear or Add
  TmyEvent<TmyComboBox2&> chosenAgain;  // the user took the item from the list that was selected before

  void Clear();  // also closes the list
  void Add(const TmyString& text, uintptr_t data = 0);
  void BeginUpdate() noexcept { ++updates_; }  // an open list is not laid out again until the matching EndUpdate
  void EndUpdate();

  [[nodiscard]] int32_t Count() const noexcept { return static_cast<int32_t>(items_.Count()); }
  [[nodiscard]] int32_t Selection() const noexcept { return selection_; }  // -1: none
  void SetSelection(int32_t index);                                        // -1 or out of range: none
  [[nodiscard]] TmyString SelectedText() const;                            // empty without a selection
  [[nodiscard]] TmyString ItemText(int32_t index) const;                   // empty out of range
  [[nodiscard]] uintptr_t ItemData(int32_t index) const noexcept;          // 0 out of range
  [[nodiscard]] int32_t FindText(const TmyString& text) const noexcept;    // the whole text, case-sensitive; -1: none

  // The open list, null while closed. It goes when the list closes.
  [[nodiscard]] TmyListBox* OpenList() const noexcept;

  void Paint(HDC dc) override;
  void Char(char& character, LPARAM flags) override;
  void FocusChanged(bool focused) override;
  void ThemeChanged() override;

 protected:
  [[nodiscard]] TmyDropWindow* MakeDrop() override;
  void TakeChoice() override;
  bool DroppedKey(uint32_t key, LPARAM flags) override;
  bool FieldKey(uint32_t key, LPARAM flags) override;

 private:
  [[nodiscard]] TmyDropDown* OpenDrop() const noexcept;
  void Choose(int32_t index);  // closes and raises an event: nothing of ours after it
  void ItemsChanged();
  [[nodiscard]] int TextWidth();
  [[nodiscard]] bool HasKeyboard() const { return IsAlive() && ::GetFocus() == Handle(); }

  TmyLBitemList items_;
  TypeSearch search_;
  int32_t selection_ = -1;
  int32_t updates_ = 0;
  int textWidth_ = -1;  // of the widest row with its margins; -1: to be measured
};

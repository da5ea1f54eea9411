// Marlux 3. A drawn list of texts with its own scroll bar and a single selection. The cost of painting depends on the
// rows in view alone.
//
//   auto* list = new TmyListBox(dialog, WS_VISIBLE | WS_TABSTOP);   // belongs to its window
//   list->BeginUpdate();
//   for (const Choice& choice : choices) list->Add(choice.name, choice.id);
//   list->EndUpdate();
//   list->activated.Bind<&MyDialog::Choose>(this);
//
// Arrows, Page, Home and End move the selection, typing jumps to the first item that begins with the typed text.
#pragma once

#include "toolkit/TmyLBitem.h"
#include "toolkit/TmyPanel.h"
#include "toolkit/TmyScrollBar.h"
#include "toolkit/TypeSearch.h"

class TmyListBox : public TmyPanel {
 public:
  explicit TmyListBox(TmyComponent& parent, DWORD style = WS_TABSTOP);

  TmyEvent<TmyListBox&> selected;   // the user selected another item; not raised by SetSelection
  TmyEvent<TmyListBox&> activated;  // Enter or a double click; with FollowsMouse a single click

  void Clear();
  void Add(const TmyString& text, uintptr_t data = 0);
  void BeginUpdate() noexcept { ++updates_; }  // nothing is laid out or painted until the matching EndUpdate
  void EndUpdate();
  // Shows somebody else's items in place of its own; they outlive the list box. ItemsChanged tells of changes.
  void ShowItemsOf(const TmyLBitemList& items);
  void ItemsChanged();

  [[nodiscard]] int32_t Count() const noexcept { return static_cast<int32_t>(items_->Count()); }
  [[nodiscard]] int32_t Selection() const noexcept { return selection_; }  // -1: none
  void SetSelection(int32_t index);                                        // -1 or out of range: none; brings into view
  [[nodiscard]] TmyString SelectedText() const;                            // empty without a selection
  [[nodiscard]] uintptr_t ItemData(int32_t index) const noexcept;          // 0 out of range
  [[nodiscard]] int32_t FindText(const TmyString& text) const noexcept;    // the whole text, case-sensitive; -1: none

  // As a drop-down: the selection goes with the mouse, the selected row looks so without the focus, and releasing the
  // button over a row activates it.
  void SetFollowsMouse(bool on) noexcept { followsMouse_ = on; }

  [[nodiscard]] int32_t ItemAt(int x, int y) const;  // client coordinates, -1: none
  [[nodiscard]] int32_t TopItem() const noexcept;    // the first one in view
  [[nodiscard]] int32_t VisibleRows() const;         // whole rows, at least 1
  [[nodiscard]] RECT ItemRect(int32_t index) const;  // client coordinates, perhaps out of view
  [[nodiscard]] TmyScrollBar& ScrollBar() const noexcept { return *bar_; }
  [[nodiscard]] static int TextInset();  // from the outer edge to the text, on each side

  void Paint(HDC dc) override;
  LRESULT EraseBackground(HDC) override { return 1; }  // Paint covers everything
  void MouseDown(uint32_t keys, int x, int y) override;
  void MouseMove(uint32_t keys, int x, int y) override;
  void MouseUp(uint32_t keys, int x, int y) override;
  void DoubleClick(int x, int y) override;
  void MouseLeft() override { SetHot(-1); }
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;
  void Char(char& character, LPARAM flags) override;
  void FocusChanged(bool focused) override;
  void Realign() override;

 private:
  void SetHot(int32_t index);
  void SelectByUser(int32_t index);  // raises `selected`: nothing of ours after it
  void BringIntoView(int32_t index);
  void RepaintItem(int32_t index);
  void PaintItem(HDC dc, int32_t index, const RECT& row) const;
  void BarScrolled(TmyScrollBar&);
  [[nodiscard]] int32_t RowFor(int y) const;  // as ItemAt, but every y gives an item: for dragging outside
  [[nodiscard]] int RowWidth() const;

  TmyLBitemList own_;
  const TmyLBitemList* items_ = &own_;  // own_ or ShowItemsOf's; not owned
  TmyScrollBar* bar_;                   // belongs to its window
  TypeSearch search_;
  int32_t selection_ = -1;
  int32_t hot_ = -1;
  int32_t updates_ = 0;
  bool followsMouse_ = false;
  bool dragging_ = false;
  POINT lastMouse_ = {-1, -1};  // screen; the system repeats moves that are none
};

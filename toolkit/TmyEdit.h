// Marlux 3. A field for one line of text: the system's own edit control in our frame, so that selection, clipboard,
// undo and input methods are the system's.
//
//   auto* name = new TmyEdit(panel);                 // belongs to its window
//   name->committed.Bind<&Dialog::NameEntered>(this);
//   name->SetBounds(8, 8, name->PreferredWidth("a long name"), theme.FieldHeight());
//   name->Show(true);
//
// Enter commits and sends kMsgConfirm up, Escape sends kMsgEscape up, Tab walks on. Arriving by Tab selects everything.
#pragma once

#include "toolkit/myComponents.h"

class TmyEdit : public TmyComponent {
 public:
  enum class Align { kLeft, kRight };

  explicit TmyEdit(TmyComponent& parent, Align align = Align::kLeft);

  TmyEvent<TmyEdit&> changed;    // the user changed the text; not raised by SetText
  TmyEvent<TmyEdit&> committed;  // Enter, or the focus went after a change; the text is in its final form

  [[nodiscard]] TmyString Text() const;
  void SetText(const TmyString& text);  // the caret goes to the start
  void SetMaximumLength(uint32_t characters);
  void SelectAll();
  // For a field that shows `sample` whole, frame included.
  [[nodiscard]] int PreferredWidth(std::string_view sample) const;

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT Command(WPARAM wParam) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;
  void Char(char& character, LPARAM flags) override;
  void FocusChanged(bool focused) override;
  void EnabledChanged() override;
  void ThemeChanged() override;
  void TakeFocus() override;
  void Repaint() override;

 protected:
  struct Selection {
    int begin, end;  // the characters in [begin, end)
  };
  [[nodiscard]] Selection Selected() const;
  void Select(int begin, int end);
  void ReplaceSelection(const TmyString& text);  // as if the user had typed it; can be undone
  void SetTextByUser(const TmyString& text);     // the same for the whole text; raises `changed` last
  // Replaces the whole text by one that can be undone, without an event. The selection becomes [begin, end).
  void ExchangeText(const TmyString& text, Selection selection);
  void RaiseChanged();  // nothing of ours after it

  virtual void TextChanged() {}  // by the user, before `changed`
  virtual void Normalize() {}    // brings the text into its final form by SetText
  // Question: the field takes the clipboard's text itself; otherwise the system does.
  virtual bool PasteText(const TmyString&) { return false; }

 private:
  class Quiet;

  void ApplyTheme();
  void ApplyColors() noexcept;
  void ShrinkToText(RECT& area) const noexcept;
  void PaintFrame();
  void PaintDisabled(HDC given);
  void Commit(bool always);  // nothing of ours after it

  Align align_;
  int quiet_ = 0;       // changes of the text are the program's while above zero
  bool dirty_ = false;  // changed by the user and not committed
  bool focused_ = false;
};

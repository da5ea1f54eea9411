// Marlux 3. A field for a time of day: holds seconds, shows "HH:MM:SS". Typed digits overwrite and skip the colons,
// Left and Right go from field to field, Up and Down step the field of the caret, Page Up and Page Down the hours.
// Pasted text may also be "2330" or "23:30".
#pragma once

#include "toolkit/TimeText.h"
#include "toolkit/TmyIntEdit.h"

class TmyTimeEdit : public TmyIntEdit {
 public:
  explicit TmyTimeEdit(TmyComponent& parent, Align align = Align::kLeft);

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;
  void Char(char& character, LPARAM flags) override;

 protected:
  [[nodiscard]] std::optional<int64_t> ValueOf(std::string_view text) const override;
  [[nodiscard]] TmyString TextOf(int64_t value) const override;
  void Step(int steps, bool page) override;
  bool PasteText(const TmyString& text) override;

 private:
  [[nodiscard]] int32_t Seconds() const noexcept { return static_cast<int32_t>(Value()); }
  // The text with the selection cleared, as typing and deleting start from it.
  [[nodiscard]] TimeText::Line LineWithoutSelection() const;
  void SetLine(const TimeText::Line& line);  // by the user; nothing of ours after it
  void SelectField(int field);
  void GoToField(int direction);
  void ClearSelection();
};

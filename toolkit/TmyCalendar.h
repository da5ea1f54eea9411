// Marlux 3. A date picker: a field with the date in the user's short form, and a month that drops down.
//
//   auto* from = new TmyCalendar(dialog, WS_VISIBLE | WS_TABSTOP);   // belongs to its window
//   from->SetValue(time);
//   ...
//   SYSTEMTIME chosen = from->Value();
//
// Keys of the field: Left and Right, Home and End go over day, month and year; Up and Down step that part, Page Up and
// Page Down the month; digits overwrite it. F4, Alt+Down, Alt+Up or a click drop the month down; there a click, Enter,
// Tab, F4 and Alt with an arrow take the day, Escape and everything else leave the date as it was.
#pragma once

#include "toolkit/CalendarMath.h"
#include "toolkit/TmyPanel.h"

class TmyMonthDrop;

class TmyCalendar : public TmyPanel {
 public:
  explicit TmyCalendar(TmyComponent& parent, DWORD style = WS_TABSTOP);
  ~TmyCalendar() override;

  TmyEvent<TmyCalendar&> changed;  // by the user; not raised by SetValue

  // The date with the time of day that it was set with, which the user does not see. Today at first.
  [[nodiscard]] const SYSTEMTIME& Value() const noexcept { return value_; }
  // Dates before 1601 and after 9999 become the nearest one, as do fields that make no date.
  void SetValue(const SYSTEMTIME& value);
  [[nodiscard]] TmyString Text() const;      // as shown
  [[nodiscard]] int PreferredWidth() const;  // for any date

  [[nodiscard]] bool IsDropped() const noexcept { return drop_ != nullptr; }
  void DropDown(bool open);  // closing leaves the date as it was

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC dc) override;
  LRESULT EraseBackground(HDC) override { return 1; }  // Paint covers everything
  void MouseDown(uint32_t keys, int x, int y) override;
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;
  void Char(char& character, LPARAM flags) override;
  void FocusChanged(bool focused) override;
  void EnabledChanged() override;
  void ShowChanged(bool visible) override;
  void ThemeChanged() override;

 protected:
  void Destroying() override;

 private:
  using Date = CalendarMath::Date;

  [[nodiscard]] Date Shown() const noexcept { return CalendarMath::DateOf(value_); }
  void Choose(Date date);  // closes and raises `changed`: nothing of ours after it
  void Close();
  void DropGone();
  bool DroppedKey(uint32_t key, LPARAM flags);
  bool FieldKey(uint32_t key);
  void GoToPart(int direction);
  void GoToEnd(int direction);  // -1: the first part
  void TypeDigit(char digit);
  bool FinishTyping();  // a year that was left half typed; true: `changed` was raised
  void ReadPicture();
  [[nodiscard]] CalendarMath::Part Part() const noexcept { return parts_[part_].part; }
  [[nodiscard]] std::string PartText(size_t part, const SYSTEMTIME& time) const;

  SYSTEMTIME value_ = {};
  std::vector<CalendarMath::PicturePart> parts_;  // of the user's short date; at least one can be edited
  size_t part_ = 0;                               // the one that keys change
  std::string typed_;                             // digits of it so far
  TmyMonthDrop* drop_ = nullptr;                  // belongs to its window; null while closed
};

// Marlux 3. A date picker: a field with the date in the user's short form, and a month that drops down.
//
//   auto* from = new TmyCalendar(dialog, WS_VISIBLE | WS_TABSTOP);   // belongs to its window
//   from->SetValue(time);
//   ...
//   SYSTEMTIME chosen = from->Value();
//
// Keys of the field: Left and Right, Home and End go over day, month and year; Up and Down step that part, Page Up and
// Page Down the month; digits overwrite it, a whole date in the order of its parts.
#pragma once

#include "toolkit/CalendarMath.h"
#include "toolkit/TmyDropPanel.h"

class TmyMonthDrop;

class TmyCalendar : public TmyDropPanel {
 public:
  explicit TmyCalendar(TmyComponent& parent, DWORD style = WS_TABSTOP);

  TmyEvent<TmyCalendar&> changed;  // by the user; not raised by SetValue

  // The date with the time of day that it was set with, which the user does not see. Today at first.
  [[nodiscard]] const SYSTEMTIME& Value() const noexcept { return value_; }
  // Dates before 1601 and after 9999 become the nearest one, as do fields that make no date.
  void SetValue(const SYSTEMTIME& value);
  [[nodiscard]] TmyString Text() const;      // as shown
  [[nodiscard]] int PreferredWidth() const;  // for any date

  // Takes a year that was left half typed, as leaving the field does. True: `changed` was raised.
  bool FinishTyping();

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
  using Date = CalendarMath::Date;

  [[nodiscard]] Date Shown() const noexcept { return CalendarMath::DateOf(value_); }
  void Choose(Date date);                              // closes and raises `changed`: nothing of ours after it
  [[nodiscard]] TmyMonthDrop& Month() const noexcept;  // while open
  void StepBy(uint32_t key);
  [[nodiscard]] std::optional<Date> WithTyped(int value);
  void GoToPart(int direction);
  void GoToEnd(int direction);  // -1: the first part
  void TypeDigit(char digit);
  void ReadPicture();
  [[nodiscard]] CalendarMath::Part Part() const noexcept { return parts_[part_].part; }
  [[nodiscard]] std::string PartText(size_t part, const SYSTEMTIME& time) const;

  SYSTEMTIME value_ = {};
  std::vector<CalendarMath::PicturePart> parts_;  // of the user's short date; at least one can be edited
  size_t part_ = 0;                               // the one that keys change
  std::string typed_;                             // digits of it so far
  int typedDay_ = 0;  // until the field is left: the month or year typed behind it may have that day; 0 is none
};

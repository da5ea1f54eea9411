#include "toolkit/TmyCalendar.h"

#include <algorithm>
#include <utility>

#include "foundation/Clock.h"
#include "toolkit/DropField.h"
#include "toolkit/ListKeys.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyMonthDrop.h"

namespace {

constexpr size_t kYearDigits = 4;
constexpr int kThisCentury = 2000;  // what a year of two typed digits means
// Wide digits and a day of two of them; names of months are measured, all of them.
constexpr SYSTEMTIME kWideDate = {2028, 1, 0, 28, 0, 0, 0, 0};

}  // namespace

TmyCalendar::TmyCalendar(TmyComponent& parent, DWORD style) : TmyDropPanel(parent, style) {
  ReadPicture();
  SetValue(Clock::Local());
}

void TmyCalendar::ReadPicture() {
  char picture[80] = {};
  GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE | LOCALE_USE_CP_ACP, picture, sizeof(picture));
  parts_ = CalendarMath::SplitPicture(picture);
  const auto editable = [](const CalendarMath::PicturePart& part) { return CalendarMath::IsEditable(part.part); };
  if (std::none_of(parts_.begin(), parts_.end(), editable)) parts_ = CalendarMath::SplitPicture("yyyy-MM-dd");
  GoToEnd(-1);
}

void TmyCalendar::SetValue(const SYSTEMTIME& value) {
  typed_.clear();
  typedDay_ = 0;
  value_ = value;
  CalendarMath::SetDate(value_, CalendarMath::DateOf(value));
  Repaint();
}

std::string TmyCalendar::PartText(size_t part, const SYSTEMTIME& time) const {
  const CalendarMath::PicturePart& shown = parts_[part];
  if (shown.part == CalendarMath::Part::kText) return shown.picture;
  if (part == part_ && !typed_.empty() && &time == &value_) return typed_;
  char text[80] = {};
  GetDateFormatA(LOCALE_USER_DEFAULT, LOCALE_USE_CP_ACP, &time, shown.picture.c_str(), text, sizeof(text));
  return text;
}

TmyString TmyCalendar::Text() const {
  std::string text;
  for (size_t part = 0; part < parts_.size(); ++part) text += PartText(part, value_);
  return TmyString(text);
}

int TmyCalendar::PreferredWidth() const {
  int widest = 0;
  SYSTEMTIME time = kWideDate;
  for (time.wMonth = 1; time.wMonth <= 12; ++time.wMonth) {
    int width = 0;
    for (size_t part = 0; part < parts_.size(); ++part) width += Theme().TextWidth(PartText(part, time));
    widest = std::max(widest, width);
  }
  return DropField::WidthFor(widest + Theme().Step());
}

TmyDropWindow* TmyCalendar::MakeDrop() {
  if (FinishTyping() && (!IsAlive() || IsDropped())) return nullptr;
  typedDay_ = 0;
  return new TmyMonthDrop(*this, Shown());
}

TmyMonthDrop& TmyCalendar::Month() const noexcept {
  return dynamic_cast<TmyMonthDrop&>(*Drop());
}

void TmyCalendar::TakeChoice() {
  Choose(Month().Selected());
}

void TmyCalendar::Choose(Date date) {
  Close();
  if (date == Shown()) return;
  CalendarMath::SetDate(value_, date);
  Repaint();
  changed(*this);
}

bool TmyCalendar::DroppedKey(uint32_t key, LPARAM) {
  return Month().MoveByKey(key, GetKeyState(VK_CONTROL) < 0);
}

bool TmyCalendar::FieldKey(uint32_t key, LPARAM flags) {
  if (ListKeys::IsWithAlt(flags)) return false;
  const bool isVertical = key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT;
  const bool isSideways = key == VK_LEFT || key == VK_RIGHT || key == VK_HOME || key == VK_END;
  if (!isVertical && !isSideways) return false;
  if (FinishTyping() && !IsAlive()) return true;
  if (isVertical) StepBy(key);
  if (key == VK_LEFT || key == VK_RIGHT) GoToPart(key == VK_RIGHT ? 1 : -1);
  if (key == VK_HOME || key == VK_END) GoToEnd(key == VK_END ? 1 : -1);
  return true;
}

void TmyCalendar::StepBy(uint32_t key) {
  const int direction = key == VK_UP || key == VK_PRIOR ? 1 : -1;
  const bool isPage = key == VK_PRIOR || key == VK_NEXT;
  typedDay_ = 0;
  Choose(CalendarMath::Stepped(Shown(), isPage ? CalendarMath::Part::kMonth : Part(), direction));
}

void TmyCalendar::GoToPart(int direction) {
  for (size_t at = part_ + static_cast<size_t>(direction); at < parts_.size(); at += static_cast<size_t>(direction)) {
    if (!CalendarMath::IsEditable(parts_[at].part)) continue;  // past the first one the index wraps beyond the last
    part_ = at;
    break;
  }
  Repaint();
}

void TmyCalendar::GoToEnd(int direction) {
  part_ = direction < 0 ? static_cast<size_t>(-1) : parts_.size();
  GoToPart(-direction);
}

void TmyCalendar::Char(char& character, LPARAM flags) {
  if (IsEnabled() && !IsDropped() && character >= '0' && character <= '9') {
    TypeDigit(std::exchange(character, '\0'));
    return;
  }
  TmyDropPanel::Char(character, flags);
}

// A day or a month counts from its first digit on and is done when no other digit can follow; a year counts with the
// fourth. A digit that makes no date with those before it begins anew.
void TmyCalendar::TypeDigit(char digit) {
  const Hold hold;
  const bool isYear = Part() == CalendarMath::Part::kYear;
  typed_ += digit;
  if (isYear && typed_.size() < kYearDigits) return Repaint();
  std::optional<Date> date = WithTyped(std::stoi(typed_));
  if (!date && typed_.size() > 1) {
    typed_ = digit;
    if (!isYear) date = WithTyped(std::stoi(typed_));
  }
  const bool canGrow =
      !isYear && typed_.size() == 1 && (!date || CalendarMath::WithPart(*date, Part(), std::stoi(typed_ + '0')));
  if (date && !canGrow) {
    typed_.clear();
    GoToPart(1);
  }
  Repaint();
  if (date) Choose(*date);
}

// A day that the month shown does not have counts again with each month and year typed behind it.
std::optional<TmyCalendar::Date> TmyCalendar::WithTyped(int value) {
  const std::optional<Date> date = CalendarMath::WithPart(Shown(), Part(), value);
  if (date && Part() == CalendarMath::Part::kDay) typedDay_ = value;
  return date && typedDay_ > 0 ? CalendarMath::WithPart(*date, CalendarMath::Part::kDay, typedDay_) : date;
}

bool TmyCalendar::FinishTyping() {
  const std::string typed = std::exchange(typed_, "");
  if (typed.empty()) return false;
  Repaint();
  if (Part() != CalendarMath::Part::kYear || typed.size() > 2) return false;
  const std::optional<Date> date = WithTyped(kThisCentury + std::stoi(typed));
  if (!date || *date == Shown()) return false;
  Choose(*date);
  return true;
}

// Arriving starts at the first part, as typing a whole date does.
void TmyCalendar::FocusChanged(bool focused) {
  if (focused) {
    if (!IsDropped()) GoToEnd(-1);
  } else {
    const Hold hold;
    Close();
    if (FinishTyping() && !IsAlive()) return;
    typedDay_ = 0;
  }
  Repaint();
}

// The form of dates may be another one, too.
void TmyCalendar::ThemeChanged() {
  Close();
  typed_.clear();
  ReadPicture();
  TmyDropPanel::ThemeChanged();
}

void TmyCalendar::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const bool enabled = IsEnabled();
  const bool hasKeyboard = enabled && ::GetFocus() == Handle();
  RECT place = DropField::Paint(dc, {0, 0, ClientWidth(), ClientHeight()}, enabled, hasKeyboard || IsDropped());
  const LONG end = place.right;
  for (size_t part = 0; part < parts_.size() && place.left < end; ++part) {
    const std::string text = PartText(part, value_);
    place.right = std::min<LONG>(end, place.left + Theme().TextWidth(text));
    const bool isChosen = part == part_ && hasKeyboard && !IsDropped();
    if (isChosen) {
      const LONG above = (place.bottom - Theme().TextHeight()) / 2;
      ThemeDraw::Fill(dc, {place.left, above, place.right, place.bottom - above}, color.accent);
    }
    ThemeDraw::Text(dc, place, text,
                    !enabled   ? color.disabled
                    : isChosen ? color.accentText
                               : color.text,
                    Font(), DT_NOCLIP);
    place.left = place.right;
  }
}

#include "toolkit/TmyCalendar.h"

#include <algorithm>
#include <utility>

#include "foundation/Clock.h"
#include "toolkit/DropField.h"
#include "toolkit/ListKeys.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyMonthDrop.h"

namespace {

constexpr size_t kYearDigits = 4;
constexpr int kThisCentury = 2000;  // what a year of two typed digits means
// Wide digits and a day of two of them; names of months are measured, all of them.
constexpr SYSTEMTIME kWideDate = {2028, 1, 0, 28, 0, 0, 0, 0};

TmyTheme& Theme() {
  return TmyApplication::Get().Theme();
}

}  // namespace

TmyCalendar::TmyCalendar(TmyComponent& parent, DWORD style) : TmyPanel(parent, style) {
  ReadPicture();
  SetValue(Clock::Local());
}

TmyCalendar::~TmyCalendar() {
  Close();
}
void TmyCalendar::Destroying() {
  Close();
}

void TmyCalendar::ReadPicture() {
  char picture[80] = {};
  GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, picture, sizeof(picture));
  parts_ = CalendarMath::SplitPicture(picture);
  const auto editable = [](const CalendarMath::PicturePart& part) { return CalendarMath::IsEditable(part.part); };
  if (std::none_of(parts_.begin(), parts_.end(), editable)) parts_ = CalendarMath::SplitPicture("yyyy-MM-dd");
  GoToEnd(-1);
}

void TmyCalendar::SetValue(const SYSTEMTIME& value) {
  typed_.clear();
  value_ = value;
  CalendarMath::SetDate(value_, CalendarMath::DateOf(value));
  Repaint();
}

std::string TmyCalendar::PartText(size_t part, const SYSTEMTIME& time) const {
  const CalendarMath::PicturePart& shown = parts_[part];
  if (shown.part == CalendarMath::Part::kText) return shown.picture;
  if (part == part_ && !typed_.empty() && &time == &value_) return typed_;
  char text[80] = {};
  GetDateFormatA(LOCALE_USER_DEFAULT, 0, &time, shown.picture.c_str(), text, sizeof(text));
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

void TmyCalendar::DropDown(bool open) {
  if (open == IsDropped()) return;
  if (!open) return Close();
  if (!IsAlive() || !IsEnabled() || !IsWindowVisible(Handle())) return;
  const Hold hold;
  TakeFocus();
  if (!IsAlive() || IsDropped()) return;
  if (FinishTyping() && (!IsAlive() || IsDropped())) return;
  drop_ = new TmyMonthDrop(*this, Shown());
  drop_->chosen.Bind<&TmyCalendar::Choose>(this);
  drop_->dismissed.Bind<&TmyCalendar::Close>(this);
  drop_->gone.Bind<&TmyCalendar::DropGone>(this);
  drop_->Open();
  Repaint();
}

void TmyCalendar::Close() {
  if (!drop_) return;
  TmyMonthDrop* closing = drop_;
  drop_ = nullptr;  // first: destroying it takes the mouse away from it, which would ask to close again
  closing->chosen.Unbind();
  closing->dismissed.Unbind();
  closing->gone.Unbind();
  closing->Destroy();
  Repaint();
}

void TmyCalendar::DropGone() {
  drop_ = nullptr;
  Repaint();
}

void TmyCalendar::Choose(Date date) {
  Close();
  if (date == Shown()) return;
  CalendarMath::SetDate(value_, date);
  Repaint();
  changed(*this);
}

LRESULT TmyCalendar::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  // Escape closes the month and no more. The dispatcher would also send it to the dialog, so it does not get it.
  if (message == WM_KEYDOWN && wParam == VK_ESCAPE && IsDropped()) {
    Close();
    return 0;
  }
  // The end of the click that opened the month, sent by a program: it would release the mouse that the month has.
  if (message == WM_LBUTTONUP && IsDropped()) return 0;
  if (message == WM_CANCELMODE) Close();
  return TmyPanel::WndProc(message, wParam, lParam);
}

void TmyCalendar::MouseDown(uint32_t, int, int) {
  DropDown(!IsDropped());
}

void TmyCalendar::MouseWheel(WPARAM keysAndNotches, TmyComponent* source) {
  if (drop_) {
    drop_->MouseWheel(keysAndNotches, source);
  } else {
    TmyPanel::MouseWheel(keysAndNotches, source);
  }
}

bool TmyCalendar::KeyDown(uint32_t key, LPARAM flags) {
  if (!IsEnabled()) return TmyPanel::KeyDown(key, flags);
  const bool opens = ListKeys::IsWithAlt(flags) ? key == VK_DOWN || key == VK_UP : key == VK_F4;
  if (opens) {
    IsDropped() ? Choose(drop_->Selected()) : DropDown(true);
    return true;
  }
  if (IsDropped()) return DroppedKey(key, flags);
  if (!ListKeys::IsWithAlt(flags) && FieldKey(key)) return true;
  return TmyPanel::KeyDown(key, flags);
}

bool TmyCalendar::DroppedKey(uint32_t key, LPARAM flags) {
  const Hold hold;
  if (key == VK_TAB || key == VK_RETURN) {
    Choose(drop_->Selected());
    return key == VK_RETURN || !IsAlive() || TmyPanel::KeyDown(key, flags);
  }
  if (key == VK_F10) Close();  // the menu's loop would work below an open month
  return IsDropped() && drop_->MoveByKey(key, GetKeyState(VK_CONTROL) < 0);
}

bool TmyCalendar::FieldKey(uint32_t key) {
  const Hold hold;
  const bool isVertical = key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT;
  const bool isSideways = key == VK_LEFT || key == VK_RIGHT || key == VK_HOME || key == VK_END;
  if (!isVertical && !isSideways) return false;
  if (FinishTyping() && !IsAlive()) return true;
  if (key == VK_UP || key == VK_DOWN) Choose(CalendarMath::Stepped(Shown(), Part(), key == VK_UP ? 1 : -1));
  if (key == VK_PRIOR || key == VK_NEXT) Choose(CalendarMath::PlusMonths(Shown(), key == VK_PRIOR ? 1 : -1));
  if (key == VK_LEFT || key == VK_RIGHT) GoToPart(key == VK_RIGHT ? 1 : -1);
  if (key == VK_HOME || key == VK_END) GoToEnd(key == VK_END ? 1 : -1);
  return true;
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
  TmyPanel::Char(character, flags);
}

// A day or a month counts from its first digit on and is done when no other digit can follow; a year counts with the
// fourth. A digit that makes no date with those before it begins anew.
void TmyCalendar::TypeDigit(char digit) {
  using CalendarMath::WithPart;
  const Hold hold;
  const CalendarMath::Part part = Part();
  const bool isYear = part == CalendarMath::Part::kYear;
  typed_ += digit;
  if (isYear && typed_.size() < kYearDigits) return Repaint();
  std::optional<Date> date = WithPart(Shown(), part, std::stoi(typed_));
  if (!date && typed_.size() > 1) {
    typed_ = digit;
    if (!isYear) date = WithPart(Shown(), part, std::stoi(typed_));
  }
  const bool canGrow = !isYear && typed_.size() == 1 && (!date || WithPart(*date, part, std::stoi(typed_ + '0')));
  if (date && !canGrow) {
    typed_.clear();
    GoToPart(1);
  }
  Repaint();
  if (date) Choose(*date);
}

bool TmyCalendar::FinishTyping() {
  const std::string typed = std::exchange(typed_, "");
  if (typed.empty()) return false;
  Repaint();
  if (Part() != CalendarMath::Part::kYear || typed.size() > 2) return false;
  const std::optional<Date> date = CalendarMath::WithPart(Shown(), Part(), kThisCentury + std::stoi(typed));
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
  }
  Repaint();
}

void TmyCalendar::EnabledChanged() {
  if (!IsEnabled()) Close();
  Repaint();
}

void TmyCalendar::ShowChanged(bool visible) {
  if (!visible) Close();
}

// The form of dates may be another one, too.
void TmyCalendar::ThemeChanged() {
  Close();
  typed_.clear();
  ReadPicture();
  TmyPanel::ThemeChanged();
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

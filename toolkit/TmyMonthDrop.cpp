#include "toolkit/TmyMonthDrop.h"

#include "foundation/Clock.h"
#include "toolkit/DropDownPlace.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

using CalendarMath::Date;
using CalendarMath::kCells;

constexpr int kDaysOfWeek = 7;
constexpr int kWeeks = kCells / kDaysOfWeek;
// Spots: the cells from 0 on, then the arrows.
constexpr int kBackward = kCells;
constexpr int kForward = kCells + 1;
constexpr int kNowhere = -1;

int CellHeight() {
  return Theme().RowHeight() + Theme().Scaled(4);
}
int HeaderHeight() {
  return Theme().FieldHeight() + Theme().Step() / 2;
}

// The user's first day of the week; the system counts from Monday.
unsigned FirstWeekday() {
  DWORD fromMonday = 6;
  GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_IFIRSTDAYOFWEEK | LOCALE_RETURN_NUMBER,
                 reinterpret_cast<char*>(&fromMonday), sizeof(fromMonday));
  return (static_cast<unsigned>(fromMonday) + 1) % kDaysOfWeek;
}

std::string WeekdayName(unsigned weekday) {
  char name[32] = {};
  const unsigned fromMonday = (weekday + kDaysOfWeek - 1) % kDaysOfWeek;
  const LCTYPE type = fromMonday == 6 ? LOCALE_SSHORTESTDAYNAME7 : LOCALE_SSHORTESTDAYNAME1 + fromMonday;
  GetLocaleInfoA(LOCALE_USER_DEFAULT, type | LOCALE_USE_CP_ACP, name, sizeof(name));
  return name;
}

std::string MonthTitle(Date date) {
  SYSTEMTIME time = {};
  CalendarMath::SetDate(time, date);
  char text[80] = {};
  GetDateFormatA(LOCALE_USER_DEFAULT, DATE_YEARMONTH | LOCALE_USE_CP_ACP, &time, nullptr, text, sizeof(text));
  return text;
}

void PaintArrow(HDC dc, const RECT& area, bool forward, COLORREF color) {
  constexpr int kUnits = ThemeDraw::kUnits;
  const int width = Theme().Scaled(5) * kUnits, height = Theme().Scaled(9) * kUnits;
  const int left = static_cast<int>(area.left + area.right) * kUnits / 2 - width / 2;
  const int top = static_cast<int>(area.top + area.bottom) * kUnits / 2 - height / 2;
  const int tip = forward ? left + width : left, base = forward ? left : left + width;
  const POINT points[] = {{base, top}, {base, top + height}, {tip, top + height / 2}};
  ThemeDraw::Polygon(dc, points, 3, color);
}

}  // namespace

TmyMonthDrop::TmyMonthDrop(TmyComponent& field, Date date)
    : TmyDropWindow(field),
      date_(date),
      today_(CalendarMath::DateOf(Clock::Local())),
      firstWeekday_(FirstWeekday()),
      hot_(kNowhere) {
  SetDoubleBuffered(true);
}

// A frame of one pixel, the header with the arrows, the names of the days, six weeks.
void TmyMonthDrop::Open() {
  cellWidth_ = Theme().TextWidth("00") + Theme().Scaled(12);
  const int margins = 2 * Theme().Step();
  const SIZE size = {kDaysOfWeek * cellWidth_ + margins, HeaderHeight() + (kWeeks + 1) * CellHeight() + margins};
  OpenAt(DropDownPlace::OfSize(FieldPlace(), WorkArea(), size));
}

RECT TmyMonthDrop::AreaOf(int spot) const {
  const LONG margin = Theme().Step();
  if (spot >= kCells) {
    const LONG side = Theme().FieldHeight();
    const LONG left = spot == kBackward ? margin : ClientWidth() - margin - side;
    return {left, margin, left + side, margin + side};
  }
  const LONG left = margin + spot % kDaysOfWeek * cellWidth_;
  const LONG top = margin + HeaderHeight() + (1 + spot / kDaysOfWeek) * CellHeight();
  return {left, top, left + cellWidth_, top + CellHeight()};
}

int TmyMonthDrop::SpotAt(POINT screen) const {
  POINT at = screen;
  ScreenToClient(Handle(), &at);
  for (int spot = 0; spot <= kForward; ++spot) {
    const RECT area = AreaOf(spot);
    if (PtInRect(&area, at)) return spot;
  }
  return kNowhere;
}

void TmyMonthDrop::Select(Date date) {
  if (date == date_) return;
  date_ = date;
  Repaint();
}

bool TmyMonthDrop::MoveByKey(uint32_t key, bool control) {
  using namespace CalendarMath;
  switch (key) {
    case VK_LEFT:
      Select(PlusDays(date_, -1));
      return true;
    case VK_RIGHT:
      Select(PlusDays(date_, 1));
      return true;
    case VK_UP:
      Select(PlusDays(date_, -kDaysOfWeek));
      return true;
    case VK_DOWN:
      Select(PlusDays(date_, kDaysOfWeek));
      return true;
    case VK_PRIOR:
      Select(PlusMonths(date_, control ? -12 : -1));
      return true;
    case VK_NEXT:
      Select(PlusMonths(date_, control ? 12 : 1));
      return true;
    case VK_HOME:
      Select(FirstOfMonth(date_));
      return true;
    case VK_END:
      Select(LastOfMonth(date_));
      return true;
    default:
      return false;
  }
}

void TmyMonthDrop::MouseWheel(WPARAM keysAndNotches, TmyComponent*) {
  if (!IsUnderCursor()) {
    Dismiss();
  } else {
    Select(CalendarMath::PlusMonths(date_, -static_cast<int16_t>(HIWORD(keysAndNotches))));
  }
}

void TmyMonthDrop::CapturedMouse(UINT message, uint32_t, POINT screen) {
  const int spot = SpotAt(screen);
  if (message == WM_MOUSEMOVE) {
    if (spot != hot_) Repaint();
    hot_ = spot;
  } else if (spot >= kCells) {
    if (message == WM_LBUTTONDOWN) Select(CalendarMath::PlusMonths(date_, spot == kForward ? 1 : -1));
  } else if (spot != kNowhere && message == WM_LBUTTONUP) {
    // Released over a day: a press that began on the field counts, too.
    const auto day = CalendarMath::DayInCell(date_, spot, firstWeekday_);
    if (!day) return;
    Select(*day);
    chosen();
  }
}

void TmyMonthDrop::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT all = {0, 0, ClientWidth(), ClientHeight()};
  ThemeDraw::Fill(dc, all, color.field);
  ThemeDraw::Frame(dc, all, color.disabled);  // an edge that stands out from windows as light as this one
  PaintHeader(dc);
  PaintWeekdays(dc);
  for (int cell = 0; cell < kCells; ++cell) PaintDay(dc, cell);
}

void TmyMonthDrop::PaintHeader(HDC dc) const {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT backward = AreaOf(kBackward), forward = AreaOf(kForward);
  for (const int spot : {kBackward, kForward}) {
    const RECT area = AreaOf(spot);
    if (spot == hot_) ThemeDraw::Fill(dc, area, color.hot);
    PaintArrow(dc, area, spot == kForward, color.secondary);
  }
  ThemeDraw::Text(dc, {backward.right, backward.top, forward.left, forward.bottom}, MonthTitle(date_), color.text,
                  Theme().Get(TmyTheme::Font::kBold), DT_CENTER);
}

void TmyMonthDrop::PaintWeekdays(HDC dc) const {
  for (int column = 0; column < kDaysOfWeek; ++column) {
    RECT area = AreaOf(column);
    OffsetRect(&area, 0, -CellHeight());
    ThemeDraw::Text(dc, area, WeekdayName((firstWeekday_ + static_cast<unsigned>(column)) % kDaysOfWeek),
                    Theme().Color().secondary, Font(), DT_CENTER);
  }
}

void TmyMonthDrop::PaintDay(HDC dc, int cell) const {
  const std::optional<Date> day = CalendarMath::DayInCell(date_, cell, firstWeekday_);
  if (!day) return;
  const TmyTheme::Colors& color = Theme().Color();
  const RECT area = AreaOf(cell);
  COLORREF text = day->month() == date_.month() ? color.text : color.disabled;
  if (*day == date_) {
    ThemeDraw::Fill(dc, area, color.accent);
    text = color.accentText;
  } else if (cell == hot_) {
    ThemeDraw::Fill(dc, area, color.hot);
  }
  if (*day == today_) ThemeDraw::Frame(dc, area, color.accent);
  ThemeDraw::Text(dc, area, TmyString::FromDecimal(static_cast<unsigned>(day->day())).View(), text, Font(), DT_CENTER);
}

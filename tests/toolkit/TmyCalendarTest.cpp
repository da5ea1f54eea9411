#include "toolkit/TmyCalendar.h"

#include "tests/toolkit/ControlFixture.h"

using namespace std::chrono_literals;
using CalendarMath::Date;
using CalendarMath::DateOf;

struct TmyCalendarTest : ControlFixture {
  TmyCalendarTest() {
    calendar_->SetBounds(10, 10, 120, 25);
    Listen(calendar_->changed);
    calendar_->TakeFocus();
  }
  ~TmyCalendarTest() override { UsePicture(before_); }
  // The user's form of dates.
  static void UsePicture(const char* picture) { SetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, picture); }
  void Show(Date date) {
    SYSTEMTIME time = {0, 0, 0, 0, 7, 0, 0, 0};
    CalendarMath::SetDate(time, date);
    calendar_->SetValue(time);
  }
  Date Shown() const { return DateOf(calendar_->Value()); }

  char before_[80] = {};
  const int length_ = GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, before_, sizeof before_);
  TmyCalendar* calendar_ = new TmyCalendar(*window_, WS_VISIBLE | WS_TABSTOP);
};

TEST(CalendarMathTest, KeepsToDatesThatThereAre) {
  EXPECT_EQ(DateOf({}), CalendarMath::kFirst);
  EXPECT_EQ(CalendarMath::PlusDays(CalendarMath::kFirst, -1), CalendarMath::kFirst);
  EXPECT_EQ(CalendarMath::DayInCell(2026y / 11 / 21, 0, 1), Date(2026y / 10 / 26));
  EXPECT_EQ(CalendarMath::DayInCell(CalendarMath::kFirst, 0, 0), std::nullopt);
  EXPECT_EQ(CalendarMath::SplitPicture("dd' de 'MMM").at(1).picture, " de ");
}

TEST_F(TmyCalendarTest, KeysAndDigitsChangeTheDateInTheUsersOrder) {
  const struct {
    std::vector<uint32_t> keys;
    const char* typed;
    Date after;
    const char* picture = "M/d/yyyy";
  } cases[] = {
      {{VK_UP}, "", 2026y / 2 / 28},
      {{VK_RIGHT, VK_UP}, "", 2026y / 2 / 1},
      {{VK_END, VK_DOWN}, "", 2025y / 1 / 31},
      {{}, "12242027", 2027y / 12 / 24},
      {{}, "3/5", 2026y / 3 / 5},
      {{VK_END}, "30", 2030y / 1 / 31},  // half a year, and the field is left
      {{VK_RIGHT}, "09", 2026y / 1 / 9},
      {{}, "2292028", 2028y / 2 / 29},
      {{VK_PRIOR}, "31122026", 2026y / 12 / 31, "dd.MM.yyyy"},
      {{VK_END, VK_DOWN, VK_HOME}, "30022028", 2028y / 2 / 29, "dd.MM.yyyy"},
      {{VK_F4, VK_DOWN, VK_RETURN}, "", 2026y / 2 / 7},
      {{VK_F4, VK_HOME, VK_ESCAPE}, "", 2026y / 1 / 31},
      {{VK_F4, VK_NEXT, VK_TAB}, "", 2026y / 2 / 28},
  };
  for (const auto& c : cases) {
    UsePicture(c.picture);
    calendar_->ThemeChanged();
    Show(2026y / 1 / 31);
    calendar_->TakeFocus();
    Input::Key(*calendar_, VK_HOME);
    for (const uint32_t key : c.keys) Input::Key(*calendar_, key);
    Input::Type(*calendar_, c.typed);
    SetFocus(window_->Handle());
    EXPECT_EQ(Shown(), c.after) << calendar_->Text().Chars();
    EXPECT_EQ(calendar_->Value().wHour, 7);
    EXPECT_FALSE(calendar_->IsDropped());
  }
  EXPECT_EQ(window_->escapes, 0);  // it closed the month
}

TEST_F(TmyCalendarTest, AClickOnADayChoosesItAndAnOwnerMayClose) {
  Show(2026y / 11 / 21);
  Input::Click(*calendar_, 5, 5);
  const HWND drop = GetCapture();
  RECT place = {};
  GetClientRect(drop, &place);
  const LPARAM lastCell = MAKELPARAM(place.right - 20, place.bottom - 15);  // 12/12, weeks from Sunday on
  SendMessageA(drop, WM_LBUTTONDOWN, MK_LBUTTON, lastCell);
  SendMessageA(drop, WM_LBUTTONUP, 0, lastCell);
  EXPECT_EQ(Shown(), Date(2026y / 12 / 12));
  CloseDuring([this] { Input::Type(*calendar_, "5"); });
}

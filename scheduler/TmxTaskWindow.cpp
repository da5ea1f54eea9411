#include "scheduler/TmxTaskWindow.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "foundation/Clock.h"
#include "foundation/LostTexts.h"
#include "plugin/ModeNames.h"
#include "schedule/DayTime.h"
#include "scheduler/TaskTime.h"
#include "scheduler/ZoneTime.h"
#include "toolkit/DropField.h"
#include "toolkit/ListKeys.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_TABSTOP | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr int64_t kHzInKhz = 1000;

// The lines from the top; the check box stands above them.
constexpr const char* kLabels[] = {"From date", "To date", "Start time", "Stop time", "Frequency", "Mode", "Days"};
constexpr int kRows = static_cast<int>(std::size(kLabels));
constexpr int kFrequencyRow = 4;
constexpr int kDaysRow = kRows - 1;
constexpr std::string_view kUnit = "kHz";

int Margin() {
  return 2 * Theme().Step();
}
int Pitch() {  // from one line to the next
  return Theme().FieldHeight() + Theme().Step();
}
int LineTop(int row) {
  return Margin() + Pitch() * (1 + row);
}
int LabelWidth() {
  int widest = 0;
  for (const char* label : kLabels) widest = std::max(widest, Theme().TextWidth(label));
  return widest;
}
int FieldLeft() {
  return Margin() + LabelWidth() + 3 * Theme().Step();
}

// What a file's impossible date shows as: the last that there is.
constexpr SYSTEMTIME kBeyondAnyDate = {10000, 1, 6, 1, 0, 0, 0, 0};

// A date that the user left alone stays as it is, down to what no field shows.
TaskDate DateIn(const TmyCalendar& picker, TaskDate before) {
  const SYSTEMTIME& shown = picker.Value();
  const SYSTEMTIME former = TimeOfDate(before).value_or(kBeyondAnyDate);
  return CalendarMath::DateOf(former) == CalendarMath::DateOf(shown) ? before : DateOfTime(shown);
}

TmyString DayCaption(uint32_t bit) {
  constexpr uint32_t kLetters = 3;
  return {DayMaskText(1U << bit), kLetters};
}

}  // namespace

TmxTaskWindow::TmxTaskWindow(SchedulerOwner& owner, TmyComponent& parent)
    : TmyDialog("New Task", kStyle, kExtendedStyle, parent),
      owner_(owner),
      lostTexts_(LostTexts()),
      enabled_(*this, "Enable task"),
      from_(new TmyCalendar(*this, WS_VISIBLE | WS_TABSTOP)),
      to_(new TmyCalendar(*this, WS_VISIBLE | WS_TABSTOP)),
      start_(new TmyTimeEdit(*this)),
      stop_(new TmyTimeEdit(*this)),
      frequency_(new TmyFrequencyEdit(*this, 0, std::numeric_limits<int64_t>::max())),
      frequencyUpDown_(new TmyUpDown(*this, *frequency_)),
      mode_(new TmyComboBox2(*this, WS_VISIBLE | WS_TABSTOP)),
      days_{{{*this, DayCaption(0)},
             {*this, DayCaption(1)},
             {*this, DayCaption(2)},
             {*this, DayCaption(3)},
             {*this, DayCaption(4)},
             {*this, DayCaption(5)},
             {*this, DayCaption(6)}}},
      ok_(*this, "OK"),
      cancel_(*this, "Cancel") {
  SetKeyPreview(true);
  ok_.SetDefault(true);
  ok_.clicked.Bind<&TmxTaskWindow::Clicked>(this);
  cancel_.clicked.Bind<&TmxTaskWindow::Clicked>(this);
  if (const auto range = owner.Host().FrequencyRangeKhz(); range && range->lowestKhz < range->highestKhz) {
    frequency_->SetRange(range->lowestKhz * kHzInKhz, range->highestKhz * kHzInKhz);
  }
  AddModes();
  for (TmyComponent* field : std::initializer_list<TmyComponent*>{start_, stop_, frequency_, frequencyUpDown_}) {
    field->Show(true);
  }
  FitSize(parent.IsVisible() ? parent : owner.Window());
}

void TmxTaskWindow::AddModes() {
  for (const int32_t mode : owner_.Host().ModeNumbers()) {
    mode_->Add(ModeName(mode), static_cast<uintptr_t>(static_cast<intptr_t>(mode)));
  }
  MeasureModes();
}

// Once: a host may have very many.
void TmxTaskWindow::MeasureModes() {
  int widest = 0;
  for (int32_t i = 0; i < mode_->Count(); ++i) widest = std::max(widest, Theme().TextWidth(mode_->ItemText(i).View()));
  modeWidth_ = DropField::WidthFor(widest);
}

bool TmxTaskWindow::Edit(TmxTask& task) {
  const Hold hold;
  task_ = task;
  Fill(task);
  if (LostTexts() != lostTexts_) return false;
  isConfirmed_ = false;
  const int result = ShowModal(GetParent());
  if (result != kConfirmed && (result == 0 || !isConfirmed_)) return false;
  task = task_;
  return true;
}

void TmxTaskWindow::Fill(const TmxTask& task) {
  isUtc_ = owner_.IsUtc();
  offset_ = isUtc_ ? 0 : Clock::LocalOffsetSeconds();
  enabled_.SetChecked(task.enabled != 0);
  from_->SetValue(TimeOfDate(task.from).value_or(kBeyondAnyDate));
  to_->SetValue(TimeOfDate(task.to).value_or(kBeyondAnyDate));
  start_->SetValue(LocalOfUtc(task.start, offset_));
  stop_->SetValue(LocalOfUtc(task.stop, offset_));
  constexpr uint64_t kMost = std::numeric_limits<int64_t>::max();
  frequency_->SetValue(static_cast<int64_t>(std::min(task.frequency, kMost)));
  SelectMode(task.mode);
  for (uint32_t day = 0; day < days_.size(); ++day) days_[day].SetChecked((task.days & 1U << day) != 0);
}

void TmxTaskWindow::SelectMode(int32_t mode) {
  mode_->SetSelection(0);
  for (int32_t i = mode_->Count() - 1; i >= 0; --i) {
    if (static_cast<int32_t>(mode_->ItemData(i)) == mode) mode_->SetSelection(i);
  }
}

TmxTask TmxTaskWindow::Entered() const {
  TmxTask task = task_;
  task.enabled = enabled_.IsChecked() ? 1 : 0;
  task.from = DateIn(*from_, task.from);
  task.to = DateIn(*to_, task.to);
  task.start = TimeIn(*start_, task.start);
  task.stop = TimeIn(*stop_, task.stop);
  task.frequency = static_cast<uint64_t>(frequency_->Value());
  const auto mode = static_cast<int32_t>(mode_->ItemData(mode_->Selection()));
  task.mode = mode_->Selection() < 0 || mode == -1 ? 0 : mode;  // 0: nothing to choose from
  task.days = 0;
  for (uint32_t day = 0; day < days_.size(); ++day) task.days |= days_[day].IsChecked() ? 1U << day : 0;
  return task;
}

// A new task's stop time may be beyond the day. In UTC it stays so until another one is entered; in local time it
// becomes the time of day that is shown.
uint32_t TmxTaskWindow::TimeIn(const TmyTimeEdit& field, uint32_t before) const {
  const auto shown = static_cast<uint32_t>(field.Value());
  if (!isUtc_) return UtcOfLocal(shown, offset_);
  return shown == LocalOfUtc(before, 0) ? before : shown;
}

// One width for the whole column.
int TmxTaskWindow::FieldWidth() const {
  return std::max({modeWidth_, from_->PreferredWidth(), start_->PreferredWidth("00:00:00"),
                   frequency_->PreferredWidth("00000000.000") + TmyUpDown::PreferredWidth()});
}

int TmxTaskWindow::DaysWidth() const {
  int width = 0;
  for (const Tmy_CheckBox& day : days_) width += day.PreferredWidth() + Theme().Step();
  return width - Theme().Step();
}

void TmxTaskWindow::FitSize(const TmyComponent& around) {
  const int fields = std::max(DaysWidth(), FieldWidth() + Theme().Step() + Theme().TextWidth(kUnit));
  RECT frame = {0, 0, FieldLeft() + fields + Margin(),
                LineTop(kRows) + Theme().Step() + Theme().FieldHeight() + Margin()};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  PlaceCentred(around, {frame.right - frame.left, frame.bottom - frame.top});
}

void TmxTaskWindow::Realign() {
  enabled_.SetBounds(FieldLeft(), Margin(), enabled_.PreferredWidth(), Theme().FieldHeight());
  PlaceFields();
  PlaceDays();
  PlaceButtons();
}

void TmxTaskWindow::PlaceFields() {
  const int left = FieldLeft(), width = FieldWidth();
  int row = 0;
  for (TmyComponent* field : std::initializer_list<TmyComponent*>{from_, to_, start_, stop_, frequency_, mode_}) {
    field->SetBounds(left, LineTop(row++), width, Theme().FieldHeight());
  }
  const int narrower = width - TmyUpDown::PreferredWidth(), top = LineTop(kFrequencyRow);
  frequency_->SetBounds(left, top, narrower, Theme().FieldHeight());
  frequencyUpDown_->SetBounds(left + narrower, top, TmyUpDown::PreferredWidth(), Theme().FieldHeight());
}

void TmxTaskWindow::PlaceDays() {
  int left = FieldLeft();
  for (Tmy_CheckBox& day : days_) {
    day.SetBounds(left, LineTop(kDaysRow), day.PreferredWidth(), Theme().FieldHeight());
    left += day.PreferredWidth() + Theme().Step();
  }
}

void TmxTaskWindow::PlaceButtons() {
  const int top = ClientHeight() - Margin() - Theme().FieldHeight();
  const int cancelLeft = ClientWidth() - Margin() - cancel_.PreferredWidth();
  cancel_.SetBounds(cancelLeft, top, cancel_.PreferredWidth(), Theme().FieldHeight());
  ok_.SetBounds(cancelLeft - Theme().Step() - ok_.PreferredWidth(), top, ok_.PreferredWidth(), Theme().FieldHeight());
}

void TmxTaskWindow::Paint(HDC dc) {
  const auto text = [&](int row, int left, std::string_view words) {
    const RECT place = {left, LineTop(row), ClientWidth(), LineTop(row) + Theme().FieldHeight()};
    ThemeDraw::Text(dc, place, words, Theme().Color().text, Font());
  };
  for (int row = 0; row < kRows; ++row) text(row, Margin(), kLabels[row]);
  text(kFrequencyRow, frequencyUpDown_->Bounds().right + Theme().Step(), kUnit);
}

void TmxTaskWindow::ThemeChanged() {
  MeasureModes();
  TmyDialog::ThemeChanged();
  FitSize(*this);
}

// Enter confirms from everywhere but the buttons, which it presses, and open lists, whose row it takes. The edits
// bring their text into its form first, by themselves.
void TmxTaskWindow::PreviewKey(TmyComponent& sender, uint32_t& key, LPARAM flags) {
  if (key != VK_RETURN || ListKeys::IsWithAlt(flags)) return;
  const TmyControl* drawn = &sender == this ? FocusedControl() : nullptr;
  const bool isOnButton = drawn == &ok_ || drawn == &cancel_;
  const bool isOpen = mode_->IsDropped() || from_->IsDropped() || to_->IsDropped();
  const bool isEdit = &sender == start_ || &sender == stop_ || &sender == frequency_;
  if (isOnButton || isOpen || isEdit) return;
  key = 0;
  if (!ListKeys::IsRepeated(flags)) Confirm();  // not the Enter that opened the dialog
}

void TmxTaskWindow::Confirm() {
  ok_.Press();
}

void TmxTaskWindow::Escape() {
  EndModal(kCancelled);
}

void TmxTaskWindow::Clicked(Tmy_Btn& button) {
  if (&button != &ok_) return EndModal(kCancelled);
  for (TmyCalendar* picker : {from_, to_}) picker->FinishTyping();
  const TmxTask entered = Entered();
  if (const uint32_t lost = LostTexts(); std::exchange(lostTexts_, lost) != lost) {
    MessageBeep(MB_ICONWARNING);
    return TmyComponent::Repaint();
  }
  task_ = entered;
  // Another dialog's loop may run inside ours, which then cannot end yet: whatever is pressed meanwhile, it is
  // confirmed.
  isConfirmed_ = true;
  EndModal(kConfirmed);
}

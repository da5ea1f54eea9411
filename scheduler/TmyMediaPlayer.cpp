#include "scheduler/TmyMediaPlayer.h"

#include <commdlg.h>

#include <algorithm>
#include <cstdio>

#include "foundation/FloatMode.h"
#include "plugin/DataFolders.h"
#include "scheduler/TmyWaveFilePCM.h"
#include "scheduler/TransportGlyphs.h"
#include "toolkit/ListKeys.h"
#include "toolkit/ModulePin.h"
#include "toolkit/SmoothShapes.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr uintptr_t kPollTimer = 1;
constexpr UINT kPollMilliseconds = 100;
constexpr uint32_t kStopsAtEnd = 5;    // a device needs a moment to begin
constexpr int64_t kSkip = 2000;        // milliseconds, of back and forward
constexpr int64_t kSliderStep = 1000;  // milliseconds
constexpr int64_t kSliderPage = 10000;
constexpr uint32_t kFileBuffer = 0x100000;  // bytes
constexpr char kInitialTime[] = "00:00:00 / 00:00:00";
constexpr int kButtonGap = 4;  // all at 96 dpi
constexpr int kMinimumSlider = 80;
constexpr int kDot = 10;                      // the sign that something is being recorded
constexpr int kDotInset = ThemeDraw::kUnits;  // a pixel

struct Time {
  int hours, minutes, seconds;
  explicit Time(int64_t all) noexcept
      : hours(static_cast<int>(all / 3600)),
        minutes(static_cast<int>(all / 60 % 60)),
        seconds(static_cast<int>(all % 60)) {}
};

int64_t RecordedMilliseconds(const TmyWaveFilePCM& file) {
  const uint64_t perSecond = uint64_t{file.SampleRate()} * file.BitsPerSample() * file.Channels() / 8;
  return perSecond > 0 ? static_cast<int64_t>(uint64_t{file.DataSize()} * 1000 / perSecond) : 0;
}

TmyString AskForWavFile(HWND owner, const TmyString& folder) {
  const KeptFloatMode kept;
  char file[MAX_PATH] = {};
  OPENFILENAMEA dialog = {};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = "WAV files\0*.wav\0";
  dialog.lpstrFile = file;
  dialog.nMaxFile = sizeof(file);
  dialog.lpstrInitialDir = folder.Chars();
  dialog.lpstrTitle = "Open WAV for playback";
  dialog.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  // This dialog leaves the process in the folder that was looked at, whatever its flags say.
  wchar_t before[MAX_PATH] = L"";
  const DWORD length = GetCurrentDirectoryW(MAX_PATH, before);
  const bool isChosen = GetOpenFileNameA(&dialog) != FALSE;
  if (length > 0 && length < MAX_PATH) SetCurrentDirectoryW(before);
  return isChosen ? TmyString(file) : TmyString();
}

}  // namespace

TmyMediaPlayer::TmyMediaPlayer(TmyComponent& parent)
    : TmyPanel(parent, WS_VISIBLE | WS_TABSTOP, kInitialTime),
      buttons_{{{*this, "Back 2 seconds", &TransportGlyphs::Back},
                {*this, "Play", &TransportGlyphs::Play},
                {*this, "Stop", &TransportGlyphs::Stop},
                {*this, "Pause", &TransportGlyphs::Pause},
                {*this, "Forward 2 seconds", &TransportGlyphs::Forward},
                {*this, "Record", &TransportGlyphs::Record},
                {*this, "Open a WAV file", &TransportGlyphs::Open}}},
      slider_(new TmySlider(*this, "Position")),
      time_(*this, kInitialTime) {
  for (Tmy_Btn2& button : buttons_) button.clicked.Bind<&TmyMediaPlayer::Clicked>(this);
  slider_->SetSteps(kSliderStep, kSliderPage);
  slider_->moved.Bind<&TmyMediaPlayer::SliderMoved>(this);
  UpdateButtons();
}

TmyMediaPlayer::~TmyMediaPlayer() = default;

void TmyMediaPlayer::Destroying() {
  KillTimer(Handle(), kPollTimer);
  device_.Close();
  file_.reset();
}

Tmy_Btn2* TmyMediaPlayer::ButtonAt(uint32_t index) noexcept {
  return index < kButtonCount ? &buttons_[index] : nullptr;
}

int32_t TmyMediaPlayer::StartRecording(const TmyString& fileName, uint32_t sampleRate, uint32_t channels,
                                       uint32_t bits) {
  const Hold hold;
  // The caller's may be our own, or the former file's. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const TmyString name = fileName;
  auto file = std::make_unique<TmyWaveFilePCM>(name, sampleRate, channels, bits, kFileBuffer);
  const bool mayHoldName = file_ || device_.IsOpen();
  if (device_.IsOpen()) ClosePlayback();
  file_.reset();
  if (!file->IsOpen() && mayHoldName) {
    file = std::make_unique<TmyWaveFilePCM>(name, sampleRate, channels, bits, kFileBuffer);
  }
  file_ = std::move(file);
  SetFile(name);
  ShowTime(0, -1);
  SetState(kRecording);
  return 1;
}

int32_t TmyMediaPlayer::StopRecording() {
  const Hold hold;
  if (!IsRecordingState()) return 0;
  if (file_) ShowTime(0, RecordedMilliseconds(*file_));
  file_.reset();
  SetState(kIdle);
  return 1;
}

int32_t TmyMediaPlayer::StopPlayback() {
  const Hold hold;
  if (!device_.IsOpen() && state_ != kPlaying && state_ != kPlaybackPaused) return 0;
  ClosePlayback();
  SetState(kIdle);
  return 1;
}

int32_t TmyMediaPlayer::Write(const void* data, uint32_t length) {
  if (state_ != kRecording || !file_ || !file_->Write(data, length)) return 0;
  ShowTime(RecordedMilliseconds(*file_), -1);
  return 1;
}

int32_t TmyMediaPlayer::SetFileName(const TmyString& fileName) {
  if (device_.IsOpen()) return 0;
  SetFile(fileName);
  UpdateButtons();
  return 1;
}

void TmyMediaPlayer::SetFile(const TmyString& fileName) {
  fileName_ = fileName;
  time_.SetToolTip(fileName_);
}

void TmyMediaPlayer::SetState(State state) {
  const bool changed = state != state_;
  state_ = state;
  stops_ = 0;
  if (state == kPlaying) {
    SetTimer(Handle(), kPollTimer, kPollMilliseconds, nullptr);
  } else {
    KillTimer(Handle(), kPollTimer);
  }
  UpdateButtons();
  RepaintDot();
  if (changed) stateChanged(*this);  // the owner may destroy us: nothing after it
}

void TmyMediaPlayer::ClosePlayback() {
  device_.Stop();
  device_.Close();
  slider_->SetPosition(0);
  ShowPlayback(0);
}

void TmyMediaPlayer::Clicked(Tmy_Btn& button) {
  using Action = void (TmyMediaPlayer::*)();
  constexpr Action kActions[kButtonCount] = {
      &TmyMediaPlayer::Back,    &TmyMediaPlayer::Play,   &TmyMediaPlayer::Stop,    &TmyMediaPlayer::Pause,
      &TmyMediaPlayer::Forward, &TmyMediaPlayer::Record, &TmyMediaPlayer::OpenFile};
  const Hold hold;
  for (uint32_t i = 0; i < kButtonCount; ++i) {
    if (&buttons_[i] == &button && Does(static_cast<Button>(i))) return (this->*kActions[i])();
  }
}

bool TmyMediaPlayer::Does(Button button) const {
  switch (button) {
    case kBack:
    case kForward:
      return device_.IsOpen();
    case kPlay:
      return state_ == kIdle && !fileName_.IsEmpty();
    case kRecord:
      return state_ == kIdle;
    case kOpen:
      return !IsRecordingState();
    default:
      return state_ != kIdle;
  }
}

void TmyMediaPlayer::Back() {
  const int64_t position = device_.Position().value_or(0);
  SeekTo(std::max<int64_t>(position - kSkip, 0) / 1000 * 1000);
}

void TmyMediaPlayer::Forward() {
  const int64_t position = device_.Position().value_or(0);
  SeekTo(std::min(position + kSkip, slider_->Maximum()) / 1000 * 1000);
}

// A device that will not play on has failed as one that would not begin.
void TmyMediaPlayer::SeekTo(int64_t milliseconds) {
  if (!device_.IsOpen()) return;
  if (!device_.Seek(static_cast<uint32_t>(milliseconds))) milliseconds = device_.Position().value_or(0);
  ShowPlayback(milliseconds);
  stops_ = 0;
  if (state_ == kPlaying && !device_.Play()) StopPlayback();
}

// The device may let timers run inside its calls, and a task begin.
void TmyMediaPlayer::Play() {
  const bool isOpen = device_.Open(fileName_);
  const std::optional<uint32_t> length = device_.Length();
  if (state_ != kIdle) return device_.Close();
  if (!isOpen || !length) {
    device_.Close();
    return SetState(kIdle);
  }
  slider_->SetRange(*length);
  ShowPlayback(0);
  const bool plays = device_.Play();
  if (state_ != kIdle) return;
  if (plays) return SetState(kPlaying);
  StopPlayback();
}

void TmyMediaPlayer::Stop() {
  if (StopRecording() == 0) StopPlayback();
}

void TmyMediaPlayer::Pause() {
  switch (state_) {
    case kPlaying:
      device_.Pause();
      if (state_ == kPlaying) SetState(kPlaybackPaused);  // else as in Play
      return;
    case kPlaybackPaused: {
      const bool plays = device_.Resume() || device_.Play();  // a seek in between ends a pause
      if (state_ != kPlaybackPaused) return;
      if (plays) return SetState(kPlaying);
      StopPlayback();
      return;
    }
    case kRecording:
      return SetState(kRecordingPaused);
    default:
      return SetState(kRecording);
  }
}

void TmyMediaPlayer::Record() {
  RecordingParameters parameters;
  parametersWanted(parameters);
  // The owner may have gone, or have begun something itself.
  if (!IsAlive() || state_ != kIdle) return;
  const FrameFlag::Scope beginning(isRecordPressed_);
  StartRecording(parameters.fileName, parameters.sampleRate, parameters.channels, parameters.bits);
}

TmyString TmyMediaPlayer::ChooseFile() {
  const ModulePin pin;  // the dialog runs a loop of its own
  const FrameFlag::Scope choosing(choosing_);
  return AskForWavFile(TopLevel()->Handle(), RecordingsFolder());
}

void TmyMediaPlayer::OpenFile() {
  if (choosing_.IsUp()) return;
  const TmyString chosen = ChooseFile();
  if (!IsAlive() || chosen.IsEmpty() || IsRecordingState()) return;  // a recording that began meanwhile goes on
  if (state_ != kIdle) Stop();
  if (!IsAlive() || state_ != kIdle) return;
  SetFile(chosen);
  Play();
}

// While the thumb is held only the label follows: the device would stutter at every pixel.
void TmyMediaPlayer::SliderMoved(TmySlider& slider) {
  if (!device_.IsOpen()) return;
  if (slider.IsDragging()) return ShowTime(slider.Position(), slider.Maximum());
  SeekTo(slider.Position());
}

void TmyMediaPlayer::Timer(uintptr_t id) {
  if (id != kPollTimer || state_ != kPlaying || slider_->IsDragging()) return;
  const int64_t position = device_.Position().value_or(UINT32_MAX);  // a device that is gone has come to its end
  ShowPlayback(std::min(position, slider_->Maximum()));
  if (HasPlayedToEnd(position)) StopPlayback();
}

// Some devices stop short of the length that they told.
bool TmyMediaPlayer::HasPlayedToEnd(int64_t position) {
  stops_ = device_.IsStopped() ? stops_ + 1 : 0;
  return position >= slider_->Maximum() || stops_ >= kStopsAtEnd;
}

void TmyMediaPlayer::ShowPlayback(int64_t position) {
  slider_->SetPosition(position);
  ShowTime(position, slider_->Maximum());
}

// Runs for each block of audio: nothing is painted as long as the text is the same, and no memory taken for the next.
void TmyMediaPlayer::ShowTime(int64_t first, int64_t second) {
  first /= 1000;
  if (second >= 0) second /= 1000;
  if (first == shownFirst_ && second == shownSecond_) return;
  shownFirst_ = first;
  shownSecond_ = second;
  const Time at(first), of(second);
  char text[64];
  const int length = second < 0 ? snprintf(text, sizeof text, "%02d:%02d:%02d", at.hours, at.minutes, at.seconds)
                                : snprintf(text, sizeof text, "%02d:%02d:%02d / %02d:%02d:%02d", at.hours, at.minutes,
                                           at.seconds, of.hours, of.minutes, of.seconds);
  time_.Overwrite({text, static_cast<size_t>(length)});
  SetCaption(time_.Text());  // what automation and screen readers see
}

void TmyMediaPlayer::UpdateButtons() {
  const bool isPaused = state_ == kPlaybackPaused || state_ == kRecordingPaused;
  for (uint32_t i = 0; i < kButtonCount; ++i) buttons_[i].Enable(Does(static_cast<Button>(i)));
  buttons_[kPause].SetLit(isPaused);
  buttons_[kPause].SetMeaning(isPaused ? "Continue" : "Pause");
  const bool hadFocus = ::GetFocus() == slider_->Handle();
  slider_->Enable(device_.IsOpen());
  KeepFocus();
  if (hadFocus && !device_.IsOpen()) TakeFocus();  // a disabled window would swallow the keys
}

// The keyboard must not stay on a button that does nothing any more: it goes to what one wants next. Where a recording
// begins by itself that is nothing, least of all Stop: a press that is meant for another button would end it.
void TmyMediaPlayer::KeepFocus() {
  const TmyControl* focused = FocusedControl();
  if (fileChange_.IsUp() || !focused || focused->IsEnabled() || !IsEnabled()) return;
  if (IsRecordingState() && !isRecordPressed_.IsUp()) return FocusDrawn(nullptr);
  for (const Button next : {IsRecordingState() ? kStop : kPause, kPlay, kOpen}) {
    if (buttons_[next].IsEnabled()) return FocusDrawn(&buttons_[next]);
  }
}

void TmyMediaPlayer::MoveFocus(int direction) {
  constexpr int kCount = kButtonCount;
  int at = 0;
  while (at < kCount && &buttons_[static_cast<uint32_t>(at)] != FocusedControl()) ++at;
  if (at == kCount && direction > 0) at = -1;  // none has the focus: from the outside
  for (at += direction; at >= 0 && at < kCount; at += direction) {
    Tmy_Btn2& button = buttons_[static_cast<uint32_t>(at)];
    if (button.IsEnabled()) return FocusDrawn(&button);
  }
}

bool TmyMediaPlayer::KeyDown(uint32_t key, LPARAM flags) {
  if (TmyPanel::KeyDown(key, flags)) return true;
  if ((key != VK_LEFT && key != VK_RIGHT) || ListKeys::IsWithAlt(flags)) return false;
  MoveFocus(key == VK_LEFT ? -1 : 1);
  return true;
}

// Where the slider begins, beside the buttons.
int TmyMediaPlayer::ButtonsWidth() const {
  const int gap = Theme().Scaled(kButtonGap);
  return Theme().Step() + static_cast<int>(kButtonCount) * (buttons_[0].PreferredWidth() + gap) + gap;
}

bool TmyMediaPlayer::FitsInOneRow(int width) const {
  const int step = Theme().Step();
  return width >= ButtonsWidth() + Theme().Scaled(kMinimumSlider) + TimeWidth() + 3 * step;
}

int TmyMediaPlayer::TimeWidth() const {
  return Theme().Scaled(kDot) + Theme().Step() / 2 + Theme().TextWidth(kInitialTime) + 1;
}

int TmyMediaPlayer::OneRowHeight() const {
  return static_cast<int>(buttons_[0].PreferredSize().cy) + 2 * Theme().Step();
}

int TmyMediaPlayer::TwoRowHeight() const {
  return OneRowHeight() + TmySlider::PreferredHeight() + Theme().Step();
}

int TmyMediaPlayer::PreferredHeight(int width) const {
  return FitsInOneRow(width) ? OneRowHeight() : TwoRowHeight();
}

void TmyMediaPlayer::Realign() {
  const int step = Theme().Step();
  const SIZE button = buttons_[0].PreferredSize();
  const bool isOneRow = FitsInOneRow(ClientWidth()) && ClientHeight() < TwoRowHeight();
  const int upper = isOneRow ? std::max(step, (ClientHeight() - static_cast<int>(button.cy)) / 2) : step;
  int left = step;
  for (Tmy_Btn2& each : buttons_) {
    each.SetBounds(left, upper, button.cx, button.cy);
    left += button.cx + Theme().Scaled(kButtonGap);
  }
  buttons_[kRecord].SetGlyphColor(Theme().Color().record);  // the theme may be another one now
  const int height = TmySlider::PreferredHeight();
  const int top =
      isOneRow ? upper + (static_cast<int>(button.cy) - height) / 2 : 2 * step + static_cast<int>(button.cy);
  const int begin = isOneRow ? ButtonsWidth() : step, end = ClientWidth() - step - TimeWidth();
  slider_->SetBounds(begin, top, std::max(0, end - step - begin), height);
  const int text = end + Theme().Scaled(kDot) + step / 2;
  time_.SetBounds(text, top, std::max(0, ClientWidth() - step - text), height);
}

RECT TmyMediaPlayer::DotArea() const {
  const int size = Theme().Scaled(kDot);
  const int left = time_.Bounds().left - Theme().Step() / 2 - size,
            middle = (time_.Bounds().top + time_.Bounds().bottom) / 2;
  return {left, middle - size / 2, left + size, middle - size / 2 + size};
}

void TmyMediaPlayer::RepaintDot() {
  const RECT area = DotArea();
  InvalidateRect(Handle(), &area, TRUE);
}

// Beside the time: red while audio is recorded, grey while the recording is paused.
void TmyMediaPlayer::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  ThemeDraw::Fill(dc, {0, 0, ClientWidth(), 1}, color.line);
  if (!IsRecordingState()) return;
  const RECT dot = DotArea();
  SmoothShapes::Circle(dc, dot.left, dot.top, dot.right - dot.left, kDotInset,
                       state_ == kRecording ? color.record : color.disabled);
}

// Marlux 3. The panel that records audio into a WAV file, fed block by block, and plays WAV files back: seven buttons,
// a position slider and a time label.
//
//   player_ = new TmyMediaPlayer(*this);                                // belongs to its window
//   player_->parametersWanted.Bind<&Window::NameRecording>(this);       // fills in where the record button records to
//   player_->stateChanged.Bind<&Window::PlayerChanged>(this);
//   player_->StartRecording(path, 44100, 1, 16);
//   player_->Write(samples, bytes);
//
// Both events may destroy the panel: after StartRecording, StopRecording and each press of a button ask IsAlive().
#pragma once

#include <array>
#include <memory>

#include "foundation/FrameFlag.h"
#include "scheduler/MciWave.h"
#include "toolkit/TmyPanel.h"
#include "toolkit/TmySlider.h"
#include "toolkit/Tmy_Btn2.h"
#include "toolkit/Tmy_Label.h"

class TmyWaveFilePCM;

// What the record button records into.
struct RecordingParameters {
  TmyString fileName = "myRecording.wav";
  uint32_t sampleRate = 44100;  // Hz
  uint32_t channels = 1;
  uint32_t bits = 16;
};

class TmyMediaPlayer : public TmyPanel {
 public:
  enum State : int32_t { kIdle = 0, kPlaying = 1, kPlaybackPaused = 2, kRecording = 3, kRecordingPaused = 4 };
  enum Button : uint32_t { kBack, kPlay, kStop, kPause, kForward, kRecord, kOpen, kButtonCount };

  explicit TmyMediaPlayer(TmyComponent& parent);
  ~TmyMediaPlayer() override;

  TmyEvent<RecordingParameters&> parametersWanted;  // question: before the record button starts; may change each field
  TmyEvent<TmyMediaPlayer&> stateChanged;           // StateCode() is another one now

  // Ends what runs and records into a new file in place of one of that name. Returns 1, also when the file could not be
  // made: the state is kRecording then too, File() is not open and Write gives 0. When memory is short what ran goes
  // on.
  int32_t StartRecording(const TmyString& fileName, uint32_t sampleRate, uint32_t channels, uint32_t bits);
  int32_t StopRecording();  // finishes the file; 0 when nothing is being recorded
  int32_t StopPlayback();   // 0 when nothing is being played
  // Samples as the file has them. 0 when not recording (a pause drops them) and when not all could be written.
  int32_t Write(const void* data, uint32_t length);
  int32_t SetFileName(const TmyString& fileName);  // what the play button plays; 0 while something is open for playback

  [[nodiscard]] int32_t StateCode() const noexcept { return state_; }
  [[nodiscard]] TmyWaveFilePCM* File() const noexcept { return file_.get(); }     // null when not recording
  [[nodiscard]] const TmyString& FileName() const noexcept { return fileName_; }  // last played or recorded
  [[nodiscard]] Tmy_Btn2* ButtonAt(uint32_t index) noexcept;                      // a Button; null beyond
  [[nodiscard]] TmySlider& Slider() noexcept { return *slider_; }
  [[nodiscard]] const TmyString& TimeText() const noexcept { return time_.Text(); }

  // Up while one file ends and the next one begins. Buttons are disabled for a moment only: the one with the keyboard
  // keeps it; KeepFocus comes afterwards.
  [[nodiscard]] FrameFlag& FileChange() noexcept { return fileChange_; }
  [[gnu::noinline]] void KeepFocus();

  // Pixels for a width: the slider and the label get a row of their own when there is no room beside the buttons.
  [[nodiscard]] int PreferredHeight(int width) const;
  [[nodiscard]] const RECT& TimeBounds() const noexcept { return time_.Bounds(); }  // the label, in the panel
  [[nodiscard]] int TwoRowHeight() const;  // with that row; the panel uses it when it is that high

  void Realign() override;
  void Paint(HDC dc) override;
  void Timer(uintptr_t id) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;

 protected:
  void Destroying() override;

 private:
  void Clicked(Tmy_Btn& button);
  void Back();
  void Play();
  void Stop();
  void Pause();
  void Forward();
  void Record();
  void OpenFile();
  [[nodiscard]] TmyString ChooseFile();  // empty: none
  void SliderMoved(TmySlider& slider);

  void SetState(State state);  // the owner may destroy us in it
  void ClosePlayback();
  void SeekTo(int64_t milliseconds);
  bool HasPlayedToEnd(int64_t position);
  void ShowPlayback(int64_t position);
  void ShowTime(int64_t first, int64_t second);  // milliseconds; a negative second one is not shown
  void UpdateButtons();
  [[nodiscard]] bool Does(Button button) const;  // whether pressing it does anything now
  void SetFile(const TmyString& fileName);
  void MoveFocus(int direction);
  void RepaintDot();
  [[nodiscard]] RECT DotArea() const;
  [[nodiscard]] int ButtonsWidth() const;  // pixels
  [[nodiscard]] int OneRowHeight() const;
  [[nodiscard]] int TimeWidth() const;
  [[nodiscard]] bool FitsInOneRow(int width) const;
  [[nodiscard]] bool IsRecordingState() const noexcept { return state_ == kRecording || state_ == kRecordingPaused; }

  std::array<Tmy_Btn2, kButtonCount> buttons_;
  TmySlider* slider_;  // belongs to its window
  Tmy_Label time_;
  MciWave device_;
  std::unique_ptr<TmyWaveFilePCM> file_;
  TmyString fileName_;
  State state_ = kIdle;
  int64_t shownFirst_ = 0;     // seconds that the label shows
  int64_t shownSecond_ = 0;    // negative: not shown
  uint32_t stops_ = 0;         // times in a row that a device that should play was found not to
  FrameFlag isRecordPressed_;  // while its recording begins
  FrameFlag fileChange_;
  FrameFlag choosing_;  // the open dialog is up
};

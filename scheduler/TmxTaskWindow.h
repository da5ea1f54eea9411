// Marlux 3. The task editor: a dialog for one task.
//
//   auto* editor = new TmxTaskWindow(owner, *this);   // belongs to its window, which the scheduler window owns
//   const bool confirmed = editor->Edit(task);
//
// What the fields show is what a confirmed task becomes: of a mode that the host does not have the first one that it
// has, of a frequency beyond its range the range's end. Only a time beyond the day, as new tasks may have it, stays so
// while UTC is shown, until another one is entered. It checks nothing: an empty day mask, dates in the wrong order
// and equal times are stored as they were entered.
#pragma once

#include <array>

#include "scheduler/SchedulerOwner.h"
#include "toolkit/TmyCalendar.h"
#include "toolkit/TmyComboBox2.h"
#include "toolkit/TmyDialog.h"
#include "toolkit/TmyFrequencyEdit.h"
#include "toolkit/TmyTimeEdit.h"
#include "toolkit/TmyUpDown.h"
#include "toolkit/Tmy_Btn.h"
#include "toolkit/Tmy_CheckBox.h"

class TmxTaskWindow : public TmyDialog {
 public:
  // `parent` is the window that waits; both outlive the editor.
  TmxTaskWindow(SchedulerOwner& owner, TmyComponent& parent);

  // Shows the task and waits. True: the user confirmed, the task is changed. False: it is as it was, and the editor and
  // its parent may be gone. The reserved word always stays. Without memory for what it shows it does not open; when
  // memory was short while it was open, the first OK only beeps, and the user sees what the fields have come to.
  [[nodiscard]] bool Edit(TmxTask& task);

  void Paint(HDC dc) override;
  void Realign() override;
  void ThemeChanged() override;
  void Confirm() override;
  void Escape() override;
  void PreviewKey(TmyComponent& sender, uint32_t& key, LPARAM flags) override;

 private:
  void AddModes();
  void Fill(const TmxTask& task);
  [[nodiscard]] TmxTask Entered() const;
  [[nodiscard]] uint32_t TimeIn(const TmyTimeEdit& field, uint32_t before) const;
  void SelectMode(int32_t mode);
  void MeasureModes();
  [[nodiscard]] int DaysWidth() const;
  void FitSize(const TmyComponent& around);
  [[nodiscard]] int FieldWidth() const;
  void PlaceFields();
  void PlaceDays();
  void PlaceButtons();
  void Clicked(Tmy_Btn& button);

  SchedulerOwner& owner_;
  uint32_t lostTexts_;  // up to where the user has seen the fields
  // In the order in which Tab walks through them; the child windows belong to their windows.
  Tmy_CheckBox enabled_;
  TmyCalendar* from_;
  TmyCalendar* to_;
  TmyTimeEdit* start_;
  TmyTimeEdit* stop_;
  TmyFrequencyEdit* frequency_;
  TmyUpDown* frequencyUpDown_;
  TmyComboBox2* mode_;                // the items' data are the host's numbers
  std::array<Tmy_CheckBox, 7> days_;  // box i stands for bit i of the mask, from Sunday on
  Tmy_Btn ok_;
  Tmy_Btn cancel_;
  TmxTask task_ = {};  // as it was, and as it was confirmed
  bool isConfirmed_ = false;
  bool isUtc_ = false;
  int32_t offset_ = 0;  // seconds to add to UTC for the times shown: the zone may change while they are
  int modeWidth_ = 0;   // of the field that holds the widest mode
};

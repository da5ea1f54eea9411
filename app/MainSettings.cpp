#include "app/MainSettings.h"

#include <algorithm>

#include "app/ColumnChoice.h"
#include "plugin/DataFolders.h"
#include "scheduler/TaskTexts.h"

namespace {

// The store keeps its own sizes, those of the installations out there.
static_assert(Settings::kFccSlots == kFccFields && ColumnChoice::kMostSelected == kFccFields);
static_assert(Settings::kEibiColumns == kEibiColumns && Settings::kTaskColumns == kTaskColumnCount);
static_assert(Settings::kFccSlots <= TmyStringGrid::kMaxColumns);

template <class Array>
void TakeWidths(const TmyStringGrid& grid, Array& widths) {
  std::copy_n(grid.Widths(), widths.size(), widths.begin());
}

template <class Array>
void GiveWidths(TmyStringGrid& grid, const Array& widths) {
  grid.SetWidths(widths.data(), static_cast<uint32_t>(widths.size()));
}

}  // namespace

void MainSettings::Load(const Owners& owners) {
  TakeWidths(owners.eibi.Control(), settings_.eibiWidths);
  TakeWidths(owners.hfcc.Control(), settings_.fccWidths);
  TakeWidths(owners.desk.SchedulerWindow().Grid(), settings_.taskWidths);
  isMissed_ = !SettingsStore::Load(settings_, DocumentsFolder());
  owners.scheduler.LoadTasks();
  owners.desk.TasksLoaded();
  owners_.emplace(owners);
  Apply();
}

MainSettings::~MainSettings() {
  if (!hasScheduler_) return;
  TmxSchedulerWindow& window = owners_->desk.SchedulerWindow();
  window.opening.Unbind();
  window.ending.Unbind();
}

void MainSettings::Apply() {
  window_.Restore(owners_->window, settings_.window);
  ApplyScheduler();
  owners_->utc = settings_.isUtc;
  owners_->menu.utcTime.Check(settings_.isUtc);
  owners_->panel.SetAutoTuning(settings_.isAutoTuning);
  owners_->panel.ChooseDatabase(settings_.database == kHfcc);
  owners_->hfcc.SetFields(settings_.fccSlots.data(), settings_.fccCount);
  GiveWidths(owners_->hfcc.Control(), settings_.fccWidths);
  GiveWidths(owners_->eibi.Control(), settings_.eibiWidths);
  owners_->databases.SetCurrentFile(settings_.currentFile);
  owners_->exportFolder = settings_.exportFolder;
}

// The widths first: the window is never narrower than the columns.
void MainSettings::ApplyScheduler() {
  TmxSchedulerWindow& window = owners_->desk.SchedulerWindow();
  GiveWidths(window.Grid(), settings_.taskWidths);
  scheduler_.Restore(window, settings_.scheduler);
  window.opening.Bind<&MainSettings::SchedulerOpens>(this);
  window.ending.Bind<&MainSettings::SchedulerEnds>(this);
  hasScheduler_ = true;
}

// Its monitor may have gone, or come back, since it was there last.
void MainSettings::SchedulerOpens() {
  const TmxSchedulerWindow& window = owners_->desk.SchedulerWindow();
  scheduler_.Restore(window, scheduler_.Current(window));
}

void MainSettings::SchedulerEnds() {
  TakeScheduler();
  hasScheduler_ = false;
}

void MainSettings::TakeScheduler() {
  TmxSchedulerWindow& window = owners_->desk.SchedulerWindow();
  settings_.scheduler = scheduler_.Current(window);
  TakeWidths(window.Grid(), settings_.taskWidths);
}

// What lies behind the shown fields stays as it was stored. At the end of a session there may be a later save.
void MainSettings::Save() {
  if (!owners_) return;
  if (isMissed_) return owners_->scheduler.SaveTasks();
  if (hasScheduler_) TakeScheduler();
  settings_.window = window_.Current(owners_->window);
  settings_.isUtc = owners_->utc;
  settings_.isAutoTuning = owners_->panel.IsAutoTuning();
  settings_.database = owners_->panel.ShowsHfcc() ? kHfcc : kEibi;
  const std::vector<uint32_t>& fields = owners_->hfcc.Fields();
  settings_.fccCount = static_cast<uint32_t>(fields.size());
  std::ranges::copy(fields, settings_.fccSlots.begin());
  TakeWidths(owners_->hfcc.Control(), settings_.fccWidths);
  TakeWidths(owners_->eibi.Control(), settings_.eibiWidths);
  settings_.currentFile = owners_->databases.CurrentFile();
  settings_.exportFolder = owners_->exportFolder;
  SettingsStore::Save(settings_, [this] { owners_->scheduler.SaveTasks(); });
}

#include "app/TmxWindow.h"

#include <algorithm>
#include <new>
#include <utility>

#include "app/EibiDetailDialog.h"
#include "app/FccDetailDialog.h"
#include "app/GridExport.h"
#include "app/TmxOptionsDialog.h"
#include "app/WaitCursor.h"
#include "download/TmxDownloadWindow.h"
#include "foundation/Clock.h"
#include "foundation/FolderFiles.h"
#include "foundation/SystemErrorText.h"
#include "foundation/Trace.h"
#include "plugin/DataFolders.h"
#include "plugin/InstanceList.h"
#include "toolkit/ModulePin.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr UINT_PTR kTickTimer = 1;
constexpr UINT kTickMilliseconds = 500;
constexpr UINT_PTR kAutoTuningTimer = 2;
constexpr UINT kAutoTuningMilliseconds = 400;  // a selection that moves by keyboard tunes when it rests this long
constexpr int kLeastGridRows = 7;              // the title row among them
constexpr int kFirstWidth = 800;
constexpr int kFirstHeight = 600;

int32_t SecondsOfDay(const SYSTEMTIME& time) noexcept {
  return (time.wHour * 60 + time.wMinute) * 60 + time.wSecond;
}

int LeastGridHeight() {
  return kLeastGridRows * Theme().RowHeight();
}

// One of several steps that come in any case.
template <class Step>
void Try(Step step) noexcept {
  try {
    step();
  } catch (const std::bad_alloc&) {
    Trace::Line("No memory at the end");
  }
}

bool FileExists(const TmyString& path) noexcept {
  const DWORD attributes = GetFileAttributesA(path.Chars());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Of the two states that the system keeps of a mouse button one is the thread's, which never learns of a release that
// goes to another program; the other one is the device's, where the buttons may be swapped.
bool IsHeld(int button) noexcept {
  const bool isSwapped = GetSystemMetrics(SM_SWAPBUTTON) != 0;
  const int ofDevice = isSwapped == (button == VK_LBUTTON) ? VK_RBUTTON : VK_LBUTTON;
  return GetKeyState(button) < 0 && GetAsyncKeyState(ofDevice) < 0;
}

}  // namespace

TmxWindow::TmxWindow(HostInfo hostInfo)
    : TmyComponent(kProductCaption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_APPWINDOW, 0, 0, kFirstWidth,
                   kFirstHeight, nullptr),
      hostInfo_(std::move(hostInfo)),
      receiverDefault_(hostInfo_.ReceiverDefault()),
      gridMenu_(contextMenu_.Menu()),
      panel_(new FilterPanel(*this)),
      eibi_(std::make_unique<EibiGrid>(*this)),
      hfcc_(std::make_unique<FccGrid>(*this)),
      status_(new StatusBar(*this)),
      recorder_(*this, link_, *status_, utc_),
      scheduler_(recorder_.Session()),
      desk_(*this, scheduler_, link_, hostInfo_, utc_),
      splitter_(new TmySplitter(*this, SplitterGeometry::Keeps::kSecond)),
      databases_(*eibi_, *hfcc_, menu_) {
  SetDoubleBuffered(true);
  SetNewestInstance(this);
  menu_.AttachTo(Handle());
  BindCommands();
  settings_.Load({*this, menu_, *panel_, *eibi_, *hfcc_, databases_, scheduler_, desk_, utc_, exportFolder_});
  isReady_ = true;
  showsHfcc_ = panel_->ShowsHfcc();
  shownZone_ = Zone();
  Shown().Control().Show(true);
  databases_.Load();
  ShowTexts();
  Refresh(false);
  Realign();
  // Without it no scheduled recording would ever begin.
  if (!SetTimer(Handle(), kTickTimer, kTickMilliseconds, nullptr)) throw std::bad_alloc();
  Show(true);
}

void TmxWindow::BindCommands() {
  databases_.archiveChosen.Bind<&TmxWindow::ArchiveChosen>(this);
  menu_.checkForUpdates.chosen.Bind<&TmxWindow::CheckForUpdates>(this);
  menu_.exit.chosen.Bind<&TmxWindow::Exit>(this);
  menu_.utcTime.chosen.Bind<&TmxWindow::ToggleUtc>(this);
  menu_.help.chosen.Bind<&TmxWindow::ShowHelp>(this);
  menu_.about.chosen.Bind<&TmxWindow::ShowAbout>(this);
  gridMenu_.tune.chosen.Bind<&TmxWindow::TuneFromMenu>(this);
  gridMenu_.record.chosen.Bind<&TmxWindow::RecordFromMenu>(this);
  gridMenu_.schedule.chosen.Bind<&TmxWindow::ScheduleFromMenu>(this);
  menu_.viewScheduler.chosen.Bind<&TmxWindow::ViewScheduler>(this);
  menu_.newTask.chosen.Bind<&TmxWindow::NewTask>(this);
  menu_.exportItems.chosen.Bind<&TmxWindow::ExportCsv>(this);
  menu_.hfccSettings.chosen.Bind<&TmxWindow::ChooseColumns>(this);
  gridMenu_.showDetails.chosen.Bind<&TmxWindow::ShowDetails>(this);
  splitter_->moved.Bind<&TmxWindow::SplitterMoved>(this);
  panel_->databaseChanged.Bind<&TmxWindow::DatabaseChosen>(this);
  panel_->changed.Bind<&TmxWindow::FilterChanged>(this);
  panel_->autoTuningChanged.Bind<&TmxWindow::AutoTuningChanged>(this);
  for (ScheduleGrid* grid : std::initializer_list<ScheduleGrid*>{eibi_.get(), hfcc_.get()}) {
    grid->clicked.Bind<&TmxWindow::RowClicked>(this);
    grid->movedTo.Bind<&TmxWindow::RowMoved>(this);
    grid->activated.Bind<&TmxWindow::RowActivated>(this);
    grid->contextWanted.Bind<&TmxWindow::RowContext>(this);
    grid->sortChanged.Bind<&TmxWindow::SortChanged>(this);
  }
}

uint32_t TmxWindow::Start(uint32_t hostHandle, HostCallback callback) {
  const auto instance = reinterpret_cast<uintptr_t>(static_cast<PluginInstance*>(this));
  SetHostHandle(hostHandle);
  link_.Connect(callback, instance);
  link_.TellStarted();
  if (!IsAlive()) return 0;  // closed while the host was told
  Instances().Push(*this);
  return instance;
}

// The host may be told of something inside and close the plug-in there: the window's object is held to the end.
void TmxWindow::Notification(uint32_t code, uint32_t a, uint32_t, uint32_t c) {
  const Hold hold;
  switch (code) {
    case HostNotification::kClose:
      SendMessageA(Handle(), WM_CLOSE, 0, 0);
      break;
    case HostNotification::kHostInfo:
      hostInfo_ = HostInfo::Copy(reinterpret_cast<const void*>(c));
      break;
    case HostNotification::kFrequencyChanged:
      recorder_.FrequencyChanged();
      break;
    case HostNotification::kAudio:
      recorder_.Audio(a, reinterpret_cast<const void*>(c));
      break;
    default:
      break;
  }
}

// The window still exists here, its children too. The host may unload the module as soon as it has been told: the pin
// keeps the code, and nothing calls the host any more.
void TmxWindow::Destroying() {
  const ModulePin pin;
  EndMenu();  // nothing when none is open
  KillTimer(Handle(), kTickTimer);
  KillTimer(Handle(), kAutoTuningTimer);
  Try([this] { settings_.Save(); });
  Instances().Remove(*this);
  Try([this] { recorder_.End(); });
  link_.TellClosed();
  hostInfo_ = HostInfo();
  help_.Unload();
}

// All that must not be lost goes to the disk here, and nothing new begins unless the program may go on.
void TmxWindow::SessionEnds(bool isAppOnly) {
  if (!isAppOnly) KillTimer(Handle(), kTickTimer);
  KillTimer(Handle(), kAutoTuningTimer);
  const uint32_t tasks = scheduler_.Tasks().Count();
  Try([this] { settings_.Save(); });
  Try([&] {
    if (const uint32_t now = scheduler_.Tasks().Count(); now != tasks) desk_.TasksCame(now - tasks);
  });
  recorder_.Stop();  // last: the host is told inside
}

ScheduleGrid& TmxWindow::Shown() noexcept {
  return showsHfcc_ ? static_cast<ScheduleGrid&>(*hfcc_) : static_cast<ScheduleGrid&>(*eibi_);
}

void TmxWindow::ShowTexts() {
  for (uint32_t filter = 0; filter < FilterPanel::kTextFilters; ++filter) {
    panel_->SetTexts(filter, Shown().FilterTexts(filter));
  }
}

// The grid that goes loses its marks; its sort stays. What is seen comes first: whatever fails behind it, rows are
// those that are acted on. The keyboard must not stay in a grid that nobody sees, where Enter would tune.
void TmxWindow::DatabaseChosen() {
  KillTimer(Handle(), kAutoTuningTimer);
  showsHfcc_ = panel_->ShowsHfcc();
  ScheduleGrid& shown = Shown();
  ScheduleGrid& other = &shown == eibi_.get() ? static_cast<ScheduleGrid&>(*hfcc_) : *eibi_;
  TmyApplication& application = TmyApplication::Get();
  const bool hadFocus = ::GetFocus() == other.Control().Handle();
  shown.Control().Show(true);
  if (application.FocusOf(*this) == &other.Control()) application.RecordFocus(shown.Control());
  if (hadFocus) shown.Control().TakeFocus();
  other.Control().Show(false);
  other.ClearMarks();
  ShowTexts();
  Refresh(false);
  Realign();
  if (showsHfcc_) TellOfProblem();
}

void TmxWindow::ArchiveChosen(TmyMenuItem& item) {
  menuFcc_ = nullptr;
  databases_.LoadArchive(item.Text());
  panel_->ChooseDatabase(true);
  DatabaseChosen();
}

// What the last load of an archive had to say, once, when its grid is looked at.
void TmxWindow::TellOfProblem() {
  const HfccLoad problem = databases_.TakeProblem();
  if (problem != HfccLoad::kRead) RunBox(*new TmyMsgBox(*this, kProductCaption, HfccLoadText(problem), {"OK"}));
}

LRESULT TmxWindow::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kMsgDownload) return TmyComponent::WndProc(message, wParam, lParam);
  Download();
  return 0;
}

void TmxWindow::CheckForUpdates(TmyMenuItem&) {
  Download();
}

// Also when memory runs short inside, which ends the message that we are in.
DownloadResult TmxWindow::RunDownload() {
  const FrameFlag::Scope open(isDownloading_);
  return TmxDownloadWindow::Run(*this, DataFolder());
}

void TmxWindow::Download() {
  if (isDownloading_.IsUp()) return;
  const DownloadResult result = RunDownload();
  if (!IsAlive()) return;
  if (!databases_.Reload(result.hasEibi)) return;
  menuEibi_ = nullptr;
  menuFcc_ = nullptr;
  ShowTexts();
  Refresh(false);
  if (showsHfcc_) TellOfProblem();
}

// The question is asked once, whatever the answer is.
void TmxWindow::ShowChanged(bool visible) {
  if (visible && showsHfcc_) TellOfProblem();
  if (!IsAlive()) return;
  if (!visible || isDatabaseQuestionAsked_ || !databases_.IsOneMissing()) return;
  isDatabaseQuestionAsked_ = true;
  const int answer = RunBox(
      *new TmyMsgBox(*this, "Database files initialization needed",
                     "The frequency database files are missing and need to be installed.\r\nDo you wish to download "
                     "these files from EiBi and HFCC websites?",
                     {"Yes", "No"}));
  if (answer == 1) PostMessageA(Handle(), kMsgDownload, 0, 0);
}

// Scheduled recordings come first, whichever timer it is.
void TmxWindow::Timer(uintptr_t id) {
  scheduler_.Tick();
  if (!IsAlive()) return;
  if (const uint32_t count = scheduler_.ReadMissed()) desk_.TasksCame(count);
  desk_.Ticked();
  if (id == kTickTimer) {
    recorder_.KeepAwake();
    FollowClock();
  } else if (id == kAutoTuningTimer) {
    KillTimer(Handle(), kAutoTuningTimer);
    // The right button has moved to a row whose menu is yet to come.
    if (panel_->IsAutoTuning() && !IsHeld(VK_RBUTTON)) TuneTo(Shown().Control().CurrentRow());
  }
}

// Summer time begins and ends while the window is open. Rows that are to be exported stay as they are marked.
void TmxWindow::FollowClock() {
  const bool isDue = panel_->FollowsClock() || !(shownZone_ == Zone());
  if (isDue && !IsClicking() && !isExporting_.IsUp()) Refresh(true);
}

void TmxWindow::Realign() {
  if (!isReady_) return;
  const int width = ClientWidth(), height = ClientHeight(), bar = TmySplitter::Thickness();
  const MainRecorder::Heights strip = recorder_.HeightsFor(width);
  const int panelHeight = PanelHeight(width, height - bar - std::clamp(splitter_->Length(), strip.least, strip.most));
  panel_->SetBounds(0, 0, width, panelHeight);
  splitter_->SetLeast(std::max(LeastGridHeight(), height - panelHeight - bar - strip.most), strip.least);
  splitter_->Place({0, panelHeight, width, std::max(height, panelHeight)});
  recorder_.LayOut(splitter_->Second());
  const RECT above = splitter_->First();
  for (ScheduleGrid* grid : std::initializer_list<ScheduleGrid*>{eibi_.get(), hfcc_.get()}) {
    grid->Control().SetBounds(0, above.top, width, above.bottom - above.top);
  }
}

// All its rows, unless some of the grid would no longer be seen: then the panel scrolls.
int TmxWindow::PanelHeight(int width, int shared) const {
  return std::min(panel_->ContentHeight(width), std::max(panel_->LeastHeight(), shared - LeastGridHeight()));
}

void TmxWindow::SplitterMoved(TmySplitter&) {
  Realign();
}

void TmxWindow::ThemeChanged() {
  eibi_->ScaleWidths();
  hfcc_->ScaleWidths();
  TmyComponent::ThemeChanged();
}

// Room for the widest group of the panel and some rows.
void TmxWindow::ConstrainBounds(int&, int&, int& width, int& height) {
  const TmyTheme& theme = Theme();
  width = std::max(width, theme.Scaled(500));
  height = std::max(height, theme.Scaled(360));
}

// The window itself has nothing to type at: the keyboard starts in the grid.
void TmxWindow::FocusChanged(bool focused) {
  if (focused && isReady_) Shown().Control().TakeFocus();
}

void TmxWindow::MouseWheel(WPARAM keysAndNotches, TmyComponent* source) {
  TmyStringGrid& grid = Shown().Control();
  if (source != &grid) grid.MouseWheel(keysAndNotches, &grid);  // what the grid cannot use comes back with it as source
}

// A click into the grid that takes the focus from an edit must not meet other rows: what was typed is applied already.
// This runs inside the press, whose button may be up again.
void TmxWindow::FilterChanged(bool changedOnly) {
  const bool isInPress = GetKeyState(VK_LBUTTON) < 0 || GetKeyState(VK_RBUTTON) < 0;
  if (!changedOnly || !(isInPress || MayClickAgain())) Refresh(changedOnly);
}
void TmxWindow::SortChanged() {
  Refresh(true);
}

void TmxWindow::Refresh(bool changedOnly) {
  const ShownZone zone = Zone();
  if (!(shownZone_ == zone)) desk_.ZoneChanged();
  FilterChoices choices = panel_->Choices();
  choices.utcShown = zone.utc;
  choices.localOffset = zone.localOffset;
  choices.utcNow = SecondsOfDay(Clock::Utc());
  ScheduleGrid& grid = Shown();
  grid.Refresh(BuildFilterRecord(choices), zone, changedOnly);
  status_->SetCounts(grid.ShownCount(), grid.RecordCount());
  shownZone_ = zone;  // last: what fails is done again
}

ShownZone TmxWindow::Zone() const {
  return {utc_, Clock::LocalOffsetSeconds()};
}

void TmxWindow::AutoTuningChanged() {
  KillTimer(Handle(), kAutoTuningTimer);
}

// Rows that moved between the two clicks of a double click, or under a right button that is down, would tune to another
// broadcast. A double click is counted from the first release on.
bool TmxWindow::IsClicking() const {
  return IsHeld(VK_LBUTTON) || IsHeld(VK_RBUTTON) || MayClickAgain();
}

bool TmxWindow::MayClickAgain() const {
  return hasClick_ && Clock::Ticks() - lastClick_ <= 2 * GetDoubleClickTime();
}

void TmxWindow::RowClicked(uint32_t row) {
  KillTimer(Handle(), kAutoTuningTimer);
  lastClick_ = Clock::Ticks();
  hasClick_ = true;
  if (panel_->IsAutoTuning()) TuneTo(row);
}

void TmxWindow::RowMoved(uint32_t) {
  if (panel_->IsAutoTuning()) SetTimer(Handle(), kAutoTuningTimer, kAutoTuningMilliseconds, nullptr);
}

void TmxWindow::RowActivated(uint32_t row) {
  KillTimer(Handle(), kAutoTuningTimer);
  TuneTo(row);
}

// Rows may move while the menu is open: it is for the record that was clicked.
void TmxWindow::RowContext(uint32_t row, int x, int y) {
  KillTimer(Handle(), kAutoTuningTimer);
  if (!Shown().ShowsRecord(row)) return;
  menuTarget_ = Shown().TargetOf(row);
  menuEibi_ = showsHfcc_ ? nullptr : eibi_->ItemOf(row);
  menuFcc_ = showsHfcc_ ? hfcc_->ItemOf(row) : nullptr;
  contextMenu_.Popup(*this, x, y);
}

void TmxWindow::TuneFromMenu(TmyMenuItem&) {
  recorder_.TuneStation(menuTarget_);
}

void TmxWindow::RecordFromMenu(TmyMenuItem&) {
  recorder_.RecordStation(menuTarget_);
}

void TmxWindow::ScheduleFromMenu(TmyMenuItem&) {
  desk_.Schedule(menuTarget_);
}
void TmxWindow::ViewScheduler(TmyMenuItem&) {
  desk_.View();
}
void TmxWindow::NewTask(TmyMenuItem&) {
  desk_.NewTask();
}

void TmxWindow::TuneTo(uint32_t row) {
  if (Shown().ShowsRecord(row)) recorder_.TuneStation(Shown().TargetOf(row));
}

void TmxWindow::ShowDetails(TmyMenuItem&) {
  if (menuFcc_) (new FccDetailDialog(*this, *menuFcc_, hfcc_->Database(), Zone()))->Show(true);
  if (menuEibi_) (new EibiDetailDialog(*this, *menuEibi_, Zone()))->Show(true);
}

void TmxWindow::ExportCsv(TmyMenuItem&) {
  if (isExporting_.IsUp()) return;
  const ModulePin pin;  // the dialog runs a loop of its own
  const FrameFlag::Scope exporting(isExporting_);
  const TmyString path = AskForCsvFile(Handle(), exportFolder_);
  if (!IsAlive() || path.IsEmpty()) return;
  if (const TmyString folder = FolderOf(path); !folder.IsEmpty()) exportFolder_ = folder;
  DWORD error = ERROR_SUCCESS;
  {
    const WaitCursor wait;
    error = WriteCsv(Shown(), path);
  }
  if (error == ERROR_SUCCESS) return;
  const TmyString text = path + "\ncould not be written: " + SystemErrorText(error);
  RunBox(*new TmyMsgBox(*this, kProductCaption, text, {"OK"}));
}

void TmxWindow::ChooseColumns(TmyMenuItem&) {
  std::vector<ColumnField> fields;
  for (const FccColumn& column : FccColumns()) fields.push_back({static_cast<uint32_t>(column.field), column.title});
  std::vector<uint32_t> selected = hfcc_->Fields();
  if (!TmxOptionsDialog::Choose(*this, fields, selected) || !IsAlive()) return;
  hfcc_->SetFields(selected.data(), static_cast<uint32_t>(selected.size()));
  if (showsHfcc_) Refresh(false);
}

// Posted: the menu's message is over when the window goes.
void TmxWindow::Exit(TmyMenuItem&) {
  PostMessageA(Handle(), WM_CLOSE, 0, 0);
}

void TmxWindow::ToggleUtc(TmyMenuItem& item) {
  utc_ = !utc_;
  item.Check(utc_);
  Refresh(false);
}

int TmxWindow::RunBox(TmyMsgBox& box) {
  const int result = box.ShowModal(this);
  box.Destroy();  // nothing when it is gone already
  return IsAlive() ? result : 0;
}

void TmxWindow::ShowHelp(TmyMenuItem&) {
  if (!help_.IsAvailable()) return;
  const TmyString file = HelpFile();
  if (FileExists(file)) {
    help_.Show(Handle(), file);
    return;
  }
  RunBox(*new TmyMsgBox(*this, kProductCaption, "The Help file is missing.\nThere will be no help facilities available",
                        {"OK"}));
}

void TmxWindow::ShowAbout(TmyMenuItem&) {
  if (about_) return;
  about_ = new TmyMsgBox(*this, "About", "Marlux " MARLUX_VERSION, {"OK"});
  about_->Enlarge(125, 150);
  RunBox(*about_);
  about_ = nullptr;
}

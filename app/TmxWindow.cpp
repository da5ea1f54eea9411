#include "app/TmxWindow.h"

#include <algorithm>

#include "foundation/Clock.h"
#include "plugin/DataFolders.h"
#include "toolkit/ModulePin.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr UINT_PTR kTickTimer = 1;
constexpr UINT kTickMilliseconds = 500;
constexpr UINT_PTR kAutoTuningTimer = 2;
constexpr UINT kAutoTuningMilliseconds = 400;  // a selection that moves by keyboard tunes when it rests this long
constexpr int kFirstWidth = 800;
constexpr int kFirstHeight = 600;
constexpr WORD kIcon = 1;

int32_t SecondsOfDay(const SYSTEMTIME& time) noexcept {
  return (time.wHour * 60 + time.wMinute) * 60 + time.wSecond;
}

bool FileExists(const TmyString& path) noexcept {
  const DWORD attributes = GetFileAttributesA(path.Chars());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
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
      status_(new StatusBar(*this)) {
  if (!IsAlive()) return;
  SetDoubleBuffered(true);
  SetNewestInstance(this);
  const HICON icon = LoadIconA(TmyApplication::Get().Module(), MAKEINTRESOURCEA(kIcon));
  SendMessageA(Handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
  menu_.AttachTo(Handle());
  BindCommands();
  isReady_ = true;
  eibi_->Control().Show(true);
  LoadEibiFile();
  Realign();
  SetTimer(Handle(), kTickTimer, kTickMilliseconds, nullptr);
  Show(true);
}

void TmxWindow::BindCommands() {
  menu_.exit.chosen.Bind<&TmxWindow::Exit>(this);
  menu_.utcTime.chosen.Bind<&TmxWindow::ToggleUtc>(this);
  menu_.help.chosen.Bind<&TmxWindow::ShowHelp>(this);
  menu_.about.chosen.Bind<&TmxWindow::ShowAbout>(this);
  gridMenu_.tune.chosen.Bind<&TmxWindow::TuneFromMenu>(this);
  panel_->changed.Bind<&TmxWindow::FilterChanged>(this);
  panel_->autoTuningChanged.Bind<&TmxWindow::AutoTuningChanged>(this);
  eibi_->clicked.Bind<&TmxWindow::RowClicked>(this);
  eibi_->movedTo.Bind<&TmxWindow::RowMoved>(this);
  eibi_->activated.Bind<&TmxWindow::RowActivated>(this);
  eibi_->contextWanted.Bind<&TmxWindow::RowContext>(this);
  eibi_->sortChanged.Bind<&TmxWindow::SortChanged>(this);
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

void TmxWindow::Notification(uint32_t code, uint32_t, uint32_t, uint32_t c) {
  switch (code) {
    case HostNotification::kClose:
      SendMessageA(Handle(), WM_CLOSE, 0, 0);  // this object is gone afterwards
      break;
    case HostNotification::kHostInfo:
      hostInfo_ = HostInfo::Copy(reinterpret_cast<const void*>(c));
      break;
    case HostNotification::kFrequencyChanged:  // ends a recording; none can run
    case HostNotification::kAudio:             // for a recording; none can run
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
  Instances().Remove(*this);
  link_.TellClosed();
  hostInfo_ = HostInfo();
  help_.Unload();
}

void TmxWindow::LoadEibiFile() {
  eibi_->Load(DataFolder());
  for (uint32_t filter = 0; filter < FilterPanel::kTextFilters; ++filter) {
    TmyStringList texts;
    eibi_->FilterTexts(filter, texts);
    panel_->SetTexts(filter, texts);
  }
  Refresh(false);
}

void TmxWindow::Timer(uintptr_t id) {
  if (id == kTickTimer) {
    if (panel_->FollowsClock() && !IsClicking()) Refresh(true);
  } else if (id == kAutoTuningTimer) {
    KillTimer(Handle(), kAutoTuningTimer);
    if (panel_->IsAutoTuning()) TuneTo(eibi_->Control().CurrentRow());
  }
}

void TmxWindow::Realign() {
  if (!isReady_) return;
  const int width = ClientWidth();
  const int panelHeight = panel_->HeightFor(width);
  const int statusHeight = status_->PreferredHeight();
  const int gridHeight = std::max(0, ClientHeight() - panelHeight - statusHeight);
  panel_->SetBounds(0, 0, width, panelHeight);
  eibi_->Control().SetBounds(0, panelHeight, width, gridHeight);
  status_->SetBounds(0, panelHeight + gridHeight, width, statusHeight);
}

void TmxWindow::ThemeChanged() {
  eibi_->ScaleWidths();
  TmyComponent::ThemeChanged();
}

// Room for the widest group of the panel and some rows.
void TmxWindow::ConstrainBounds(int&, int&, int& width, int& height) {
  const TmyTheme& theme = TmyApplication::Get().Theme();
  width = std::max(width, theme.Scaled(500));
  height = std::max(height, theme.Scaled(360));
}

// The window itself has nothing to type at: the keyboard starts in the grid.
void TmxWindow::FocusChanged(bool focused) {
  if (focused && isReady_) eibi_->Control().TakeFocus();
}

void TmxWindow::MouseWheel(WPARAM keysAndNotches, TmyComponent* source) {
  TmyStringGrid& grid = eibi_->Control();
  if (source != &grid) grid.MouseWheel(keysAndNotches, &grid);  // what the grid cannot use comes back with it as source
}

void TmxWindow::FilterChanged(bool changedOnly) {
  Refresh(changedOnly);
}
void TmxWindow::SortChanged() {
  Refresh(true);
}

void TmxWindow::Refresh(bool changedOnly) {
  FilterChoices choices = panel_->Choices();
  choices.utcShown = utc_;
  choices.localOffset = Clock::LocalOffsetSeconds();
  choices.utcNow = SecondsOfDay(Clock::Utc());
  eibi_->Refresh(BuildFilterRecord(choices), {utc_, choices.localOffset}, changedOnly);
  status_->SetCounts(eibi_->ShownCount(), eibi_->RecordCount());
}

void TmxWindow::AutoTuningChanged() {
  KillTimer(Handle(), kAutoTuningTimer);
}

// Rows that moved between the two clicks of a double click would tune to another broadcast.
bool TmxWindow::IsClicking() const {
  return GetKeyState(VK_LBUTTON) < 0 || (hasClick_ && Clock::Ticks() - lastClick_ <= GetDoubleClickTime());
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
  if (!eibi_->ShowsRecord(row)) return;
  menuTarget_ = eibi_->TargetOf(row);
  contextMenu_.Popup(*this, x, y);
}

void TmxWindow::TuneFromMenu(TmyMenuItem&) {
  link_.Tune(menuTarget_.frequencyHz, menuTarget_.mode);
}

void TmxWindow::TuneTo(uint32_t row) {
  if (!eibi_->ShowsRecord(row)) return;
  const TuneTarget target = eibi_->TargetOf(row);
  link_.Tune(target.frequencyHz, target.mode);
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
  RunBox(*new TmyMsgBox(this, kProductCaption, "The Help file is missing.\nThere will be no help facilities available",
                        {"OK"}));
}

void TmxWindow::ShowAbout(TmyMenuItem&) {
  if (about_) return;
  about_ = new TmyMsgBox(this, "About", "Marlux " MARLUX_VERSION, {"OK"});
  about_->ResizeCentred(about_->Width() * 5 / 4, about_->Height() * 3 / 2);
  RunBox(*about_);
  about_ = nullptr;
}

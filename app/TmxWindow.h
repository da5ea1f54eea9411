// Marlux 3. The main window, which is the plug-in's instance at the same time: a hallway that wires menus, filter panel
// and grids together and answers commands.
//
// Made by the host's start, gone when the user or the host closes it. The host may do either inside any call to it, so
// every call to the host is the last thing that a function does, or is followed by a look at IsAlive.
#pragma once

#include <memory>

#include "app/Databases.h"
#include "app/FilterPanel.h"
#include "app/GridMenu.h"
#include "app/HelpLibrary.h"
#include "app/MainMenu.h"
#include "app/MainRecorder.h"
#include "app/MainScheduler.h"
#include "app/MainSettings.h"
#include "app/SchedulerDesk.h"
#include "app/StatusBar.h"
#include "foundation/FrameFlag.h"
#include "plugin/HostInfo.h"
#include "plugin/HostLink.h"
#include "plugin/PluginInstance.h"
#include "toolkit/TmyMsgBox.h"
#include "toolkit/TmyPopupMenu.h"
#include "toolkit/TmySplitter.h"

struct DownloadResult;

// Posted to the main window: opens the download window.
constexpr UINT kMsgDownload = WM_USER + 1;

class TmxWindow : public TmyComponent, public PluginInstance {
 public:
  explicit TmxWindow(HostInfo hostInfo);

  // Joins the host: the instance is in the list afterwards. Returns the instance's value for the host.
  uint32_t Start(uint32_t hostHandle, HostCallback callback);
  void Notification(uint32_t code, uint32_t a, uint32_t b, uint32_t c) override;

  void Timer(uintptr_t id) override;
  void Realign() override;
  void ThemeChanged() override;
  void ConstrainBounds(int& x, int& y, int& width, int& height) override;
  void FocusChanged(bool focused) override;
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  void ShowChanged(bool visible) override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  void SessionEnds(bool isAppOnly) override;

 protected:
  void Destroying() override;

 private:
  void BindCommands();
  void ShowTexts();
  [[nodiscard]] int PanelHeight(int width, int shared) const;
  void SplitterMoved(TmySplitter& splitter);
  void TellOfProblem();
  [[nodiscard]] ScheduleGrid& Shown() noexcept;  // the grid of the database chosen
  [[nodiscard]] ShownZone Zone() const;
  void FollowClock();

  // Commands
  void Exit(TmyMenuItem& item);
  void ToggleUtc(TmyMenuItem& item);
  void ShowHelp(TmyMenuItem& item);
  void ShowAbout(TmyMenuItem& item);
  void TuneFromMenu(TmyMenuItem& item);
  void RecordFromMenu(TmyMenuItem& item);
  void ScheduleFromMenu(TmyMenuItem& item);
  void ViewScheduler(TmyMenuItem& item);
  void NewTask(TmyMenuItem& item);
  void ShowDetails(TmyMenuItem& item);
  void CheckForUpdates(TmyMenuItem& item);
  void Download();
  DownloadResult RunDownload();
  void ExportCsv(TmyMenuItem& item);
  void ChooseColumns(TmyMenuItem& item);
  void ArchiveChosen(TmyMenuItem& item);
  // Runs a message box; its result, 0 when this window is gone.
  int RunBox(TmyMsgBox& box);

  // Panel and grid
  void DatabaseChosen();
  void FilterChanged(bool changedOnly);
  void AutoTuningChanged();
  void RowClicked(uint32_t row);
  void RowMoved(uint32_t row);
  void RowActivated(uint32_t row);
  void RowContext(uint32_t row, int x, int y);
  void SortChanged();
  void Refresh(bool changedOnly);
  void TuneTo(uint32_t row);
  [[nodiscard]] bool IsClicking() const;  // a button is down, or:
  [[nodiscard]] bool MayClickAgain() const;

  HostInfo hostInfo_;
  HostLink link_;
  uint32_t receiverDefault_;  // kept for what will depend on the kind of receiver; nothing does yet
  HelpLibrary help_;
  MainMenu menu_;
  TmyPopupMenu contextMenu_;
  GridMenu gridMenu_;
  FilterPanel* panel_;  // the children belong to their windows
  std::unique_ptr<EibiGrid> eibi_;
  std::unique_ptr<FccGrid> hfcc_;
  StatusBar* status_;
  MainRecorder recorder_;
  MainScheduler scheduler_;
  SchedulerDesk desk_;
  TmySplitter* splitter_;
  Databases databases_;
  MainSettings settings_;
  TmyMsgBox* about_ = nullptr;          // while it is shown
  TuneTarget menuTarget_ = {};          // what the context menu was opened for, and the one record of the two
  const EibiItem* menuEibi_ = nullptr;  // its database owns it; reset when it is loaded anew
  const FccItem* menuFcc_ = nullptr;
  TmyString exportFolder_;  // last used for a CSV file
  uint32_t lastClick_ = 0;  // ticks
  bool hasClick_ = false;
  bool utc_ = false;        // times are shown in UTC
  bool isReady_ = false;    // all children exist
  bool showsHfcc_ = false;  // the grid that is seen, and acted on; the panel's choice may be a step ahead
  ShownZone shownZone_;     // of all times
  FrameFlag isExporting_;
  bool isDatabaseQuestionAsked_ = false;
  FrameFlag isDownloading_;  // the download window is open
};

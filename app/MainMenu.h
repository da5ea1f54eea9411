// Marlux 3. The main window's menu bar. Every command has its item as a field; the window binds them to its handlers.
//
// The fields stand in the order in which the user sees the items: their initialisers append as they run.
#pragma once

#include <vector>

#include "toolkit/TmyMenu.h"

class MainMenu {
 public:
  MainMenu();

  // The window owns the system's menu from then on.
  void AttachTo(HWND window) { bar_.AttachTo(window); }
  // One item an archive, that of the current file checked; greyed when there is none. The window binds the items.
  void ListArchives(const std::vector<TmyString>& archives, const TmyString& current);
  [[nodiscard]] TmyMenu& HfccDatabases() noexcept { return hfccDatabases_; }

 private:
  TmyMainMenu bar_;
  TmyMenu& file_;

 public:
  TmyMenuItem& checkForUpdates;

 private:
  TmyMenu& hfccDatabases_;

 public:
  TmyMenuItem& exportItems;
  TmyMenuItem& exit;

 private:
  TmyMenu& options_;

 public:
  TmyMenuItem& utcTime;
  TmyMenuItem& hfccSettings;

 private:
  TmyMenu& scheduler_;

 public:
  TmyMenuItem& viewScheduler;
  TmyMenuItem& newTask;

 private:
  TmyMenu& help_;

 public:
  TmyMenuItem& help;
  TmyMenuItem& about;
};

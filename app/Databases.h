// Marlux 3. Which schedules are loaded into the two grids: listing the data folder, loading at start, when the user
// chooses an archive, and after a download.
//
//   Databases databases(eibi, hfcc, menu);
//   databases.archiveChosen.Bind<&TmxWindow::ArchiveChosen>(this);
//   databases.Load();
//
// The grids are not refreshed: that is the window's, which knows the filter. Records that the window points to are gone
// after each load.
#pragma once

#include "app/EibiGrid.h"
#include "app/FccGrid.h"
#include "app/MainMenu.h"
#include "app/ScheduleFiles.h"

class Databases {
 public:
  Databases(EibiGrid& eibi, FccGrid& hfcc, MainMenu& menu) noexcept : eibi_(eibi), hfcc_(hfcc), menu_(menu) {}
  Databases(const Databases&) = delete;
  Databases& operator=(const Databases&) = delete;

  TmyEvent<TmyMenuItem&> archiveChosen;  // from the menu, which is made anew with each list

  // The archive to load at the start; a name that is not among the folder's archives counts as none. Case does not.
  void SetCurrentFile(const TmyString& name) { currentFile_ = name; }
  void Load();  // the EiBi schedule and the current archive, without one the newest
  // After a download; true when a grid has other records now. A new EiBi file without records leaves the grid as it is;
  // the current archive stays, where there was none the newest is loaded.
  [[nodiscard]] bool Reload(bool hasNewEibi);
  void LoadArchive(const TmyString& name);

  [[nodiscard]] const TmyString& CurrentFile() const noexcept { return currentFile_; }  // need not exist
  [[nodiscard]] bool IsOneMissing() const noexcept { return !hasEibi_ || !hasArchives_; }
  // What the last load of an archive had to say; once.
  [[nodiscard]] HfccLoad TakeProblem() noexcept;

 private:
  void List(const ScheduleFiles& files);

  EibiGrid& eibi_;
  FccGrid& hfcc_;
  MainMenu& menu_;
  TmyString currentFile_;  // name of the HFCC archive last shown
  HfccLoad problem_ = HfccLoad::kRead;
  bool hasEibi_ = false;  // the folder had an eibi.txt when it was listed last
  bool hasArchives_ = false;
};

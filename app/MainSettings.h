// Marlux 3. The main window's room for the user's settings: hands what was stored to those whom it concerns, and
// collects it from them when the window goes.
//
//   settings_.Load({*this, menu_, *panel_, *eibi_, *hfcc_, databases_, scheduler_, desk_, utc_, exportFolder_});
//   ...
//   settings_.Save();   // the window's children still exist
//
// Nothing is saved that was not loaded: a window that could not be made, or not read all that was stored, leaves the
// store as it is.
#pragma once

#include <optional>

#include "app/Databases.h"
#include "app/FilterPanel.h"
#include "app/PlacedWindow.h"
#include "app/SchedulerDesk.h"

class MainSettings {
 public:
  struct Owners {  // all outlive it
    TmyComponent& window;
    MainMenu& menu;
    FilterPanel& panel;
    EibiGrid& eibi;
    FccGrid& hfcc;
    Databases& databases;
    MainScheduler& scheduler;
    SchedulerDesk& desk;
    bool& utc;
    TmyString& exportFolder;
  };

  MainSettings() = default;
  MainSettings(const MainSettings&) = delete;
  MainSettings& operator=(const MainSettings&) = delete;
  ~MainSettings();  // before the scheduler's window when the main one could not be made

  // The file of tasks is a part of the settings, to be loaded and saved amid them. The windows are moved to their
  // places; the archive to load is databases.Load's to open.
  void Load(const Owners& owners);
  void Save();

 private:
  enum Database : uint32_t { kEibi = 0, kHfcc = 1 };

  void Apply();
  void ApplyScheduler();
  void SchedulerOpens();
  void SchedulerEnds();
  void TakeScheduler();

  std::optional<Owners> owners_;
  Settings settings_;
  PlacedWindow window_;
  PlacedWindow scheduler_;
  bool isMissed_ = false;      // not all that is stored could be read
  bool hasScheduler_ = false;  // its window exists: it goes before the one that owns it is told
};

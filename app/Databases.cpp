#include "app/Databases.h"

#include <utility>

#include "app/WaitCursor.h"
#include "plugin/DataFolders.h"

// Lists, and chooses an archive when none was chosen before.
void Databases::ListFolder(const TmyString& folder) {
  const ScheduleFiles files = ListScheduleFiles(folder);
  hasEibi_ = files.hasEibi;
  hasArchives_ = !files.archives.empty();
  if (currentFile_.IsEmpty()) currentFile_ = NewestArchive(files.archives);
  menu_.ListArchives(files.archives, currentFile_);
  TmyMenu& menu = menu_.HfccDatabases();
  for (uint32_t i = 0; i < menu.ItemCount(); ++i) menu.Item(i).chosen = archiveChosen;
}

void Databases::Load() {
  const WaitCursor wait;
  const TmyString folder = DataFolder();
  ListFolder(folder);
  eibi_.Load(folder);
  if (!currentFile_.IsEmpty()) problem_ = hfcc_.Load(folder + "\\" + currentFile_);
}

bool Databases::Reload(bool hasNewEibi) {
  const WaitCursor wait;
  const TmyString folder = DataFolder();
  const bool hadArchive = !currentFile_.IsEmpty();
  ListFolder(folder);
  const bool isOtherEibi = hasNewEibi && eibi_.Reload(folder);
  const bool isFirstArchive = !hadArchive && !currentFile_.IsEmpty();
  if (isFirstArchive) problem_ = hfcc_.Load(folder + "\\" + currentFile_);
  return isOtherEibi || isFirstArchive;
}

void Databases::LoadArchive(const TmyString& name) {
  const WaitCursor wait;
  currentFile_ = name;
  TmyMenu& menu = menu_.HfccDatabases();
  for (uint32_t i = 0; i < menu.ItemCount(); ++i) menu.Item(i).Check(menu.Item(i).Text() == name);
  problem_ = hfcc_.Load(DataFolder() + "\\" + name);
}

HfccLoad Databases::TakeProblem() noexcept {
  return std::exchange(problem_, HfccLoad::kRead);
}

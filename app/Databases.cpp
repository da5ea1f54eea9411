#include "app/Databases.h"

#include <utility>

#include "app/WaitCursor.h"
#include "plugin/DataFolders.h"

// Chooses an archive when the folder had none before. The name stays while it has none at all: somebody may have taken
// them away for a moment. One that a download has replaced may be written otherwise, in capitals, say.
void Databases::List(const ScheduleFiles& files) {
  hasEibi_ = files.hasEibi;
  const bool hadArchives = std::exchange(hasArchives_, !files.archives.empty());
  const TmyString there = ArchiveNamed(files.archives, currentFile_);
  if (!there.IsEmpty() || (!hadArchives && hasArchives_)) currentFile_ = there;
  if (hasArchives_ && currentFile_.IsEmpty()) currentFile_ = NewestArchive(files.archives);
  menu_.ListArchives(files.archives, currentFile_);
  TmyMenu& menu = menu_.HfccDatabases();
  for (uint32_t i = 0; i < menu.ItemCount(); ++i) menu.Item(i).chosen = archiveChosen;
}

void Databases::Load() {
  const WaitCursor wait;
  const TmyString folder = DataFolder();
  List(ListScheduleFiles(folder));
  eibi_.Load(folder);
  if (hasArchives_) problem_ = hfcc_.Load(folder + "\\" + currentFile_);
}

bool Databases::Reload(bool hasNewEibi) {
  const WaitCursor wait;
  const TmyString folder = DataFolder();
  const bool hadArchives = hasArchives_;
  List(ListScheduleFiles(folder));
  const bool isOtherEibi = hasNewEibi && eibi_.Reload(folder);
  const bool isFirstArchive = !hadArchives && hasArchives_;
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

// Marlux 3. Which schedules the data folder holds.
#pragma once

#include <vector>

#include "foundation/TmyString.h"

struct ScheduleFiles {
  bool hasEibi = false;             // "eibi.txt"
  std::vector<TmyString> archives;  // names of the HFCC archives, in the folder's order
};

// An unreadable folder holds nothing.
[[nodiscard]] ScheduleFiles ListScheduleFiles(const TmyString& folder);

// The archive's name as the folder has it, empty when it is not there. Case does not count.
[[nodiscard]] TmyString ArchiveNamed(const std::vector<TmyString>& archives, const TmyString& name);

// The archive of the latest season: names begin with "a" (spring) or "b" (autumn) and two digits of the year. Other
// names come before all seasons; of two archives of a season the later name counts. Empty without an archive.
[[nodiscard]] TmyString NewestArchive(const std::vector<TmyString>& archives);

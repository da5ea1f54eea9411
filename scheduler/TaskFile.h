// Marlux 3. The task file: the records of all tasks one behind the other, in the order of the list, and nothing else.
//
//   TaskFile::Load(path, tasks, DateOfTime(Clock::Local()));
//   TaskFile::Save(path, tasks);
//
// Nothing in a file is refused: it is cut into records as it is.
#pragma once

#include <span>

#include "foundation/TmyString.h"
#include "foundation/TmyTypeList.h"
#include "scheduler/TmxTask.h"

namespace TaskFile {

inline constexpr char kName[] = "\\tasks.mxt";  // behind the data folder

// One task from up to 48 bytes of a file. What a short record lacks is zero, in the dates the given moment.
[[nodiscard]] TmxTask TaskOf(std::span<const uint8_t> bytes, TaskDate localNow) noexcept;
// Appends what the file holds. A file that cannot be opened leaves the list as it is and a line in the trace. True when
// the folder is known to have none. False when there may be one all the same (held, forbidden, on a share or a drive
// that is away), or when it could be read only in part: nothing of what it holds is then in the list.
bool Load(const TmyString& path, TmyTypeList<TmxTask>& tasks, TaskDate localNow);
// Replaces the file. False when that failed; the file is then the old one.
bool Save(const TmyString& path, const TmyTypeList<TmxTask>& tasks);

}  // namespace TaskFile

// Marlux 3. How a task reads in the grid of tasks, in the user's own forms of dates and times.
#pragma once

#include "foundation/TmyString.h"
#include "scheduler/TmxTask.h"

enum class TaskColumn : uint32_t { kActive, kFrequency, kFrom, kTo, kStart, kStop, kMode, kDays };
inline constexpr uint32_t kTaskColumnCount = 8;

// `offset` is what to add to UTC for the times shown, in seconds; dates are always UTC. A date that the system cannot
// show and a mode without a name give "".
[[nodiscard]] TmyString TaskText(const TmxTask& task, TaskColumn column, int32_t offset);

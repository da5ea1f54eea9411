// Marlux 3. What a new task proposes before the user edits it: the frequency tuned now, for an hour from now on.
//
//   TmxTask task = NewTask(link.CurrentFrequencyRaw(), DateOfTime(Clock::Utc()));
#pragma once

#include "scheduler/TmxTask.h"

// `rawFrequency` is the host's answer as it stands: an answer in steps of 10 Hz (bit 31 set) is not decoded, which is
// how task files have always held it. The stop time does not wrap at midnight.
[[nodiscard]] TmxTask NewTask(uint32_t rawFrequency, TaskDate utcNow) noexcept;

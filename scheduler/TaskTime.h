// Marlux 3. Dates of tasks from and to the system's calendar fields.
#pragma once

#include <windows.h>

#include <optional>

#include "scheduler/TmxTask.h"

// The start of 1601 for fields that are no time.
[[nodiscard]] TaskDate DateOfTime(const SYSTEMTIME& time) noexcept;
// Nothing for a date that the system cannot show: a task file may hold any 64 bits.
[[nodiscard]] std::optional<SYSTEMTIME> TimeOfDate(TaskDate date) noexcept;

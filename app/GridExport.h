// Marlux 3. Which rows of a grid an export writes, and the question where to.
#pragma once

#include <windows.h>

#include "app/ScheduleGrid.h"

[[nodiscard]] TmyString MakeCsvLine(const ScheduleGrid& grid, uint32_t row);  // row 0: the titles

// The titles and the marked rows in the grid's order; when none is marked every row. Returns the system's error code,
// ERROR_SUCCESS when all went well.
[[nodiscard]] DWORD WriteCsv(const ScheduleGrid& grid, const TmyString& path);

// The system's save dialog. Empty when cancelled.
[[nodiscard]] TmyString AskForCsvFile(HWND owner, const TmyString& folder);

// Marlux 3. Writing what a grid shows as comma-separated text: a title line, then a line a row, every cell in double
// quotes, lines ended with CR LF.
#pragma once

#include <windows.h>

#include "app/ScheduleGrid.h"

[[nodiscard]] TmyString MakeCsvLine(const ScheduleGrid& grid, uint32_t row);  // row 0: the titles

// The marked rows in the grid's order; when none is marked every row. The file appears whole or not at all: it is
// written aside and swapped in. Returns the system's error code, ERROR_SUCCESS when all went well.
[[nodiscard]] DWORD WriteCsv(const ScheduleGrid& grid, const TmyString& path);

// The system's save dialog. Empty when cancelled.
[[nodiscard]] TmyString AskForCsvFile(HWND owner, const TmyString& folder);

#include "scheduler/TaskTime.h"

TaskDate DateOfTime(const SYSTEMTIME& time) noexcept {
  FILETIME file;
  if (!SystemTimeToFileTime(&time, &file)) return {};
  return {file.dwLowDateTime, file.dwHighDateTime};
}

std::optional<SYSTEMTIME> TimeOfDate(TaskDate date) noexcept {
  const FILETIME file = {date.low, date.high};
  SYSTEMTIME time;
  if (!FileTimeToSystemTime(&file, &time)) return std::nullopt;
  return time;
}

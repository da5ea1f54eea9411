#include "scheduler/TaskTexts.h"

#include "foundation/FrequencyText.h"
#include "plugin/ModeNames.h"
#include "schedule/DayTime.h"
#include "scheduler/TaskTime.h"
#include "scheduler/ZoneTime.h"

namespace {

TmyString DateText(TaskDate date) {
  const std::optional<SYSTEMTIME> time = TimeOfDate(date);
  char text[80] = {};
  if (!time || !GetDateFormatA(LOCALE_USER_DEFAULT, LOCALE_USE_CP_ACP, &*time, nullptr, text, sizeof(text))) return {};
  return text;
}

TmyString TimeOfDayText(uint32_t utcSeconds, int32_t offset) {
  const uint32_t seconds = LocalOfUtc(utcSeconds, offset);
  SYSTEMTIME time = {2000, 1, 6, 1, 0, 0, 0, 0};  // the system wants a day, too
  time.wHour = static_cast<WORD>(seconds / 3600);
  time.wMinute = static_cast<WORD>(seconds % 3600 / 60);
  time.wSecond = static_cast<WORD>(seconds % 60);
  char text[80] = {};
  if (!GetTimeFormatA(LOCALE_USER_DEFAULT, LOCALE_USE_CP_ACP, &time, nullptr, text, sizeof(text))) return {};
  return text;
}

}  // namespace

TmyString TaskText(const TmxTask& task, TaskColumn column, int32_t offset) {
  switch (column) {
    case TaskColumn::kActive:
      return task.enabled != 0 ? "!" : "";
    case TaskColumn::kFrequency:
      return FormatUnsignedKhz(task.frequency);
    case TaskColumn::kFrom:
      return DateText(task.from);
    case TaskColumn::kTo:
      return DateText(task.to);
    case TaskColumn::kStart:
      return TimeOfDayText(task.start, offset);
    case TaskColumn::kStop:
      return TimeOfDayText(task.stop, offset);
    case TaskColumn::kMode:
      return ModeName(task.mode);
    case TaskColumn::kDays:
      return DayMaskText(task.days);
  }
  return {};
}

#include "scheduler/TaskTexts.h"

#include <gmock/gmock.h>

#include "scheduler/TaskTime.h"

namespace {

// Column by column; dates and times as the system writes these moments.
std::vector<std::string> Texts(const TmxTask& task, int32_t offset) {
  std::vector<std::string> texts;
  for (uint32_t column = 0; column < kTaskColumnCount; ++column) {
    texts.emplace_back(TaskText(task, TaskColumn{column}, offset).View());
  }
  return texts;
}
std::string Date(const SYSTEMTIME& time) {
  char text[80] = {};
  GetDateFormatA(LOCALE_USER_DEFAULT, 0, &time, nullptr, text, sizeof text);
  return text;
}
std::string Time(WORD hour, WORD minute) {
  const SYSTEMTIME time = {2026, 11, 0, 21, hour, minute, 7, 0};
  char text[80] = {};
  GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &time, nullptr, text, sizeof text);
  return text;
}

TEST(TaskTextsTest, ShowsATaskInTheZoneAskedFor) {
  const SYSTEMTIME from = {2026, 11, 0, 21, 23, 59, 59, 0}, to = {2027, 3, 0, 1, 0, 0, 0, 0};
  TmxTask task = {9420500, 9, 0, DateOfTime(from), DateOfTime(to), 82807, 88207, 0x3E, 2};
  using testing::ElementsAre;
  EXPECT_THAT(Texts(task, 0),
              ElementsAre("!", "9420.5", Date(from), Date(to), Time(23, 0), Time(0, 30), "DAB", "Workdays"));
  task.enabled = 0, task.mode = 21, task.days = 0, task.to = {0xFFFFFFFF, 0xFFFFFFFF};
  EXPECT_THAT(Texts(task, -84600), ElementsAre("", "9420.5", Date(from), "", Time(23, 30), Time(1, 0), "", ""));
}

}  // namespace

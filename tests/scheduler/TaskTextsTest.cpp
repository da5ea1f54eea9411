#include "scheduler/TaskTexts.h"

#include "scheduler/TaskTime.h"
#include "tests/support/Test.h"

namespace {

std::vector<std::string> Texts(const TmxTask& task, int32_t offset) {
  std::vector<std::string> texts;
  for (uint32_t i = 0; i < kTaskColumnCount; ++i) texts.emplace_back(TaskText(task, TaskColumn{i}, offset).View());
  return texts;
}
// As the system writes it for the user, by GetDateFormatA or GetTimeFormatA.
std::string Written(decltype(&GetDateFormatA) format, const SYSTEMTIME& time) {
  char text[80] = {};
  format(LOCALE_USER_DEFAULT, 0, &time, nullptr, text, sizeof text);
  return text;
}
std::string Time(WORD hour, WORD minute) {
  return Written(&GetTimeFormatA, {2026, 11, 0, 21, hour, minute, 7, 0});
}

TEST(TaskTextsTest, ShowsATaskInTheZoneAskedFor) {
  const SYSTEMTIME from = {2026, 11, 0, 21, 23, 59, 59, 0}, to = {2027, 3, 0, 1, 0, 0, 0, 0};
  TmxTask task = {9420500, 9, 0, DateOfTime(from), DateOfTime(to), 82807, 88207, 0x3E, 2};
  using testing::ElementsAre;
  EXPECT_THAT(Texts(task, 0), ElementsAre("!", "9420.5", Written(&GetDateFormatA, from), Written(&GetDateFormatA, to),
                                          Time(23, 0), Time(0, 30), "DAB", "Workdays"));
  task.frequency = UINT64_MAX, task.enabled = 0, task.mode = 21, task.days = 0, task.to = {0xFFFFFFFF, 0xFFFFFFFF};
  EXPECT_THAT(Texts(task, -84600), ElementsAre("", "18446744073709551.615", Written(&GetDateFormatA, from), "",
                                               Time(23, 30), Time(1, 0), "", ""));
}

}  // namespace

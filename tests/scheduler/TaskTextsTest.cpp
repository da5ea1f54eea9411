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
  format(LOCALE_USER_DEFAULT, LOCALE_USE_CP_ACP, &time, nullptr, text, sizeof text);
  return text;
}

TEST(TaskTextsTest, ShowsATaskInTheZoneAskedFor) {
  const SYSTEMTIME from = {2026, 11, 0, 21, 23, 0, 7, 0}, to = {2027, 3, 0, 1, 0, 30, 7, 0};
  const std::string times[] = {Written(&GetTimeFormatA, from), Written(&GetTimeFormatA, to)};
  const std::string dates[] = {Written(&GetDateFormatA, from), Written(&GetDateFormatA, to)};
  TmxTask task = {9420500, 9, 0, DateOfTime(from), DateOfTime(to), 82807, 88207, 0x80 | 0x2B, 2};
  EXPECT_THAT(Texts(task, 0),
              ElementsAre("!", "9420.5", dates[0], dates[1], times[0], times[1], "DAB", "Mon, Wed, Fri, Sun"));
  task = {UINT64_MAX, 21, 0, task.from, {0xFFFFFFFF, 0xFFFFFFFF}, 88207, 7207, 0, 0};
  EXPECT_THAT(Texts(task, -5400), ElementsAre("", "18446744073709551.615", dates[0], "", times[0], times[1], "", ""));
}

}  // namespace

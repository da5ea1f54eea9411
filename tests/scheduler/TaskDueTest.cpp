#include "scheduler/TaskDue.h"

#include <gtest/gtest.h>

#include "scheduler/NewTask.h"

namespace {

// A moment of March 2026, whose 1st was a Sunday; day 0 is the last of February.
TaskDate March(uint64_t day, uint64_t seconds = 0) {
  constexpr uint64_t kLastOfFebruary = 155'286;  // days since the start of 1601
  return TaskDate::FromTicks((kLastOfFebruary + day) * kTicksPerDay + seconds * kTicksPerSecond);
}

constexpr uint32_t kOnlyMonday = 2;
constexpr TaskDate kBit63 = {0, 0x80000000};
constexpr TaskDate kLargest = {0xFFFFFFFF, 0xFFFFFFFF};

}  // namespace

TEST(TaskDue, FollowsDaysDatesAndTimes) {
  const struct {
    const char* what;
    uint32_t start, stop, days;
    TaskDate from, to;
    uint32_t enabled;
    TaskDate now;
    bool isDue;
  } kCases[] = {
      {"before the window", 3600, 7200, 127, March(1), March(9), 1, March(5, 3599), false},
      {"its first second", 3600, 7200, 127, March(1), March(9), 1, March(5, 3600), true},
      {"its last second", 3600, 7200, 127, March(1), March(9), 1, March(5, 7200), true},
      {"to the end of that second", 3600, 7200, 127, March(1), March(9), 1,
       TaskDate::FromTicks(March(5, 7201).Ticks() - 1), true},
      {"behind it", 3600, 7200, 127, March(1), March(9), 1, March(5, 7201), false},
      {"over midnight, first", 79200, 7200, 127, March(1), March(9), 1, March(5, 79200), true},
      {"over midnight, last", 79200, 7200, 127, March(1), March(9), 1, March(5, 7200), true},
      {"over midnight, just before", 79200, 7200, 127, March(1), March(9), 1, March(5, 79199), false},
      {"over midnight, just behind", 79200, 7200, 127, March(1), March(9), 1, March(5, 7201), false},
      {"over midnight, night of the day behind the last", 79200, 7200, 127, March(1), March(5), 1, March(6, 0), false},
      {"start = stop, another time", 3600, 3600, 127, March(1), March(9), 1, March(5, 0), true},
      {"stop beyond the day", 84600, 88200, 127, March(1), March(9), 1, March(5, 86399), true},
      {"stop beyond the day, behind midnight", 84600, 88200, 127, March(1), March(9), 1, March(6, 0), false},
      {"start beyond the day, behind stop", 90000, 3600, 127, March(1), March(9), 1, March(5, 3601), false},
      {"first day, before its time of day", 0, 0, 127, March(5, 86399), March(9), 1, March(5, 0), true},
      {"last day, behind its time of day", 0, 0, 127, March(1), March(5, 0), 1, March(5, 86399), true},
      {"the day before", 0, 0, 127, March(5), March(9), 1, March(4, 86399), false},
      {"the day behind", 0, 0, 127, March(1), March(5, 86399), 1, March(6, 0), false},
      {"dates in the wrong order", 0, 0, 127, March(6), March(4), 1, March(5), false},
      {"Monday on Sunday", 0, 0, kOnlyMonday, March(1), March(9), 1, March(1, 86399), false},
      {"Monday on Monday", 0, 0, kOnlyMonday, March(1), March(9), 1, March(2), true},
      {"only Sunday", 0, 0, 1, March(1), March(9), 1, March(8), true},
      {"no day", 0, 0, 0, March(1), March(9), 1, March(5), false},
      {"unknown days only", 0, 0, 0xFFFFFF80, March(1), March(9), 1, March(5), false},
      {"disabled", 0, 0, 127, March(1), March(9), 0, March(5), false},
      {"enabled by any number", 0, 0, 127, March(1), March(9), 0x100, March(5), true},
      {"ends beyond all dates", 0, 0, 127, March(1), kBit63, 1, March(5), true},
      {"begins beyond all dates", 0, 0, 127, kBit63, kLargest, 1, March(5), false},
  };
  for (const auto& row : kCases) {
    const TmxTask task = {1, 1, 0, row.from, row.to, row.start, row.stop, row.days, row.enabled};
    EXPECT_EQ(IsDue(task, MomentOf(row.now)), row.isDue) << row.what;
  }
}

TEST(NewTask, ProposesAnHourFromNow) {
  const TaskDate late = March(1, 84600);
  EXPECT_EQ(NewTask(0x80000064, late), (TmxTask{2147483748, 1, 0, late, late, 84600, 88200, 127, 1}));
  EXPECT_EQ(NewTask(6005000, March(1)), (TmxTask{6005000, 1, 0, March(1), March(1), 0, 3600, 127, 1}));
}

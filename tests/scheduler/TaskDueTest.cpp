#include "scheduler/TaskDue.h"

#include "scheduler/NewTask.h"
#include "tests/support/Test.h"

namespace {

// A moment of March 2026, whose 1st was a Sunday; day 0 is the last of February.
TaskDate March(uint64_t day, uint64_t seconds = 0) {
  constexpr uint64_t kLastOfFebruary = 155'286;  // days since the start of 1601
  return TaskDate::FromTicks((kLastOfFebruary + day) * kTicksPerDay + seconds * kTicksPerSecond);
}

}  // namespace

// The rest is compared with a model, second by second, in the test of a week.
TEST(TaskDue, LastsToTheEndOfItsLastSecond) {
  const TmxTask task = {1, 1, 0, March(1), March(5), 3600, 7200, 127, 1};
  EXPECT_TRUE(IsDue(task, MomentOf(TaskDate::FromTicks(March(5, 7201).Ticks() - 1))));
  EXPECT_FALSE(IsDue(task, MomentOf(March(5, 7201))));
}

TEST(NewTask, ProposesAnHourFromNow) {
  const TaskDate late = March(1, 84600);
  EXPECT_EQ(NewTask(0x80000064, late), (TmxTask{2147483748, 1, 0, late, late, 84600, 88200, 127, 1}));
  EXPECT_EQ(NewTask(6005000, March(1)), (TmxTask{6005000, 1, 0, March(1), March(1), 0, 3600, 127, 1}));
}

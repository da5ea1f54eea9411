#include "scheduler/TaskFile.h"

#include "tests/support/Test.h"

namespace {

constexpr TaskDate kNow = {0x11223344, 0x01DCA000};

// A file as it lies on a user's disk: 9420 kHz AM on workdays, and 15770.5 kHz USB that nobody enabled, over midnight
// until further notice. Its reserved words are not zero.
std::string TwoTasks() {
  return ReadFileBytes("tests/scheduler/data/tasks.mxt");
}

struct TaskFileTest : testing::Test {
  bool Load() { return TaskFile::Load(path_, tasks_, kNow); }
  bool Save() { return TaskFile::Save(path_, tasks_); }

  TemporaryFolder folder_;
  const TmyString path_ = folder_.File("tasks.mxt").c_str();
  TmyTypeList<TmxTask> tasks_;
};

}  // namespace

TEST_F(TaskFileTest, ReadsAndWritesEveryField) {
  EXPECT_TRUE(Load()) << "a first start has none";
#ifdef _WIN32  // Linux does not tell why
  EXPECT_FALSE(TaskFile::Load(folder_.File("away\\tasks.mxt").c_str(), tasks_, kNow)) << "with its whole folder";
#endif
  std::string bytes;
  for (int i = 0; i < 50; ++i) bytes += TwoTasks();  // more than one read brings
  ASSERT_TRUE(WriteFileBytes(path_.Chars(), bytes + TwoTasks().substr(0, 6)));
  EXPECT_TRUE(Load());
  ASSERT_EQ(tasks_.Count(), 101u);
  EXPECT_EQ(
      *tasks_.Get(0),
      (TmxTask{9420000, 1, 0x0012F7A4, {0x646e4e00, 0x01dca984}, {0x5df7ce00, 0x01ddc5fa}, 50700, 54300, 0x3E, 1}));
  EXPECT_EQ(*tasks_.Get(100), (TmxTask{9420000, 0, 0, kNow, kNow, 0, 0, 0, 0})) << "completed";
  EXPECT_TRUE(Save());
  EXPECT_TRUE(ReadFileBytes(path_.Chars()).starts_with(bytes));
}

TEST_F(TaskFileTest, KeepsTheOldFileWhenSavingFails) {
  ASSERT_TRUE(WriteFileBytes(path_.Chars(), TwoTasks()));
  ASSERT_TRUE(tasks_.Add(std::make_unique<TmxTask>()) &&
              tasks_.Add(std::unique_ptr<TmxTask>()));  // which the system cannot write
  EXPECT_FALSE(Save());
  EXPECT_EQ(ReadFileBytes(path_.Chars()), TwoTasks());
}

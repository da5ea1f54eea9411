#include "scheduler/TaskFile.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/support/TestEnvironment.h"

namespace {

constexpr TaskDate kNow = {0x11223344, 0x01DCA000};

// Two records of which every byte is another one, made by hand.
std::string TwoTasks() {
  std::string bytes;
  for (int i = 0; i < 96; ++i) bytes += static_cast<char>(i + 1);
  return bytes;
}

class TaskFileTest : public testing::Test {
 protected:
  void Load() { TaskFile::Load(path_, tasks_, kNow); }
  bool Save() { return TaskFile::Save(path_, tasks_); }

  TemporaryFolder folder_;
  const TmyString path_ = folder_.File("tasks.mxt").c_str();
  TmyTypeList<TmxTask> tasks_;
};

}  // namespace

TEST_F(TaskFileTest, RoundTripsEveryByte) {
  for (const size_t records : {1, 2, 100}) {  // of half the fixture; many take more than one read
    std::string bytes;
    for (size_t i = 0; i < records; ++i) bytes += TwoTasks().substr(i % 2 * 48, 48);
    ASSERT_TRUE(WriteFileBytes(path_.Chars(), bytes));
    tasks_.Clear();
    Load();
    ASSERT_EQ(tasks_.Count(), records);
    ASSERT_TRUE(DeleteFileA(path_.Chars()));
    ASSERT_TRUE(Save());
    EXPECT_EQ(ReadFileBytes(path_.Chars()), bytes);
  }
}

TEST_F(TaskFileTest, CompletesAShortRecord) {
  ASSERT_TRUE(WriteFileBytes(path_.Chars(), TwoTasks().substr(0, 50)));
  Load();
  ASSERT_EQ(tasks_.Count(), 2u);
  EXPECT_EQ(*tasks_.Get(1), (TmxTask{0x3231, 0, 0, kNow, kNow, 0, 0, 0, 0}));
}

TEST_F(TaskFileTest, AppendsWhatThereIs) {
  ASSERT_TRUE(tasks_.Add(std::make_unique<TmxTask>()));
  Load();  // missing
  EXPECT_EQ(tasks_.Count(), 1u);
  ASSERT_TRUE(WriteFileBytes(path_.Chars(), ""));
  Load();
  EXPECT_EQ(tasks_.Count(), 1u);
  ASSERT_TRUE(WriteFileBytes(path_.Chars(), TwoTasks()));
  Load();
  EXPECT_EQ(tasks_.Count(), 3u);
  tasks_.Clear();
  EXPECT_TRUE(Save());
  EXPECT_EQ(ReadFileBytes(path_.Chars()), "");
}

TEST_F(TaskFileTest, KeepsTheOldFileWhenSavingFails) {
  ASSERT_TRUE(WriteFileBytes(path_.Chars(), TwoTasks()));
  ASSERT_TRUE(CreateDirectoryA((path_ + ".new").Chars(), nullptr));  // where the new content would grow
  EXPECT_FALSE(Save());
  EXPECT_EQ(ReadFileBytes(path_.Chars()), TwoTasks());
}

#include "foundation/TmyFile.h"

#include <gtest/gtest.h>

#include "foundation/SwapFile.h"
#include "tests/support/TestEnvironment.h"

namespace {

class TmyFileTest : public testing::Test {
 protected:
  [[nodiscard]] bool HasAside() const {
    return GetFileAttributesA((name_ + SwapFile::kEnding).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  const TemporaryFolder folder_;
  const std::string name_ = folder_.File("a");
};

TEST_F(TmyFileTest, WhoOnlyReadsMakesNoFileAndReadsUpToTheEnd) {
  char bytes[4] = {};
  {
    TmyFile absent(name_.c_str(), GENERIC_READ, OPEN_ALWAYS);
    EXPECT_FALSE(absent.IsOpen() || absent.Read(bytes, 1) || absent.Write(bytes, 1));
    EXPECT_EQ(absent.Size(), 0U);
    EXPECT_EQ(GetFileAttributesA(name_.c_str()), INVALID_FILE_ATTRIBUTES);
  }
  EXPECT_TRUE(TmyFile(name_.c_str(), GENERIC_WRITE, OPEN_ALWAYS).Write("12345", 5));
  TmyFile file(name_.c_str(), GENERIC_READ, OPEN_EXISTING);
  EXPECT_EQ(file.Size(), 5U);
  EXPECT_EQ(file.ReadSome(bytes, 4), 4U);
  EXPECT_EQ(file.Position(), 4U);
  EXPECT_EQ(file.ReadSome(bytes, 4), 1U);
  EXPECT_EQ(std::string(bytes, 4), "5234");
  EXPECT_EQ(file.ReadSome(bytes, 4), 0U);
}

TEST_F(TmyFileTest, ASwapReplacesWholeOrNotAtAll) {
  ASSERT_TRUE(WriteFileBytes(name_, "old"));
  EXPECT_TRUE(SwapFile(name_.c_str()).Write("dropped", 7));
  EXPECT_FALSE(HasAside());
  const HANDLE holder = CreateFileA(name_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  SwapFile failing(name_.c_str());
  EXPECT_TRUE(failing.Write("new", 3));
  EXPECT_FALSE(failing.Commit());
  CloseHandle(holder);
  EXPECT_FALSE(HasAside());
  SwapFile kept(name_.c_str());
  EXPECT_TRUE(kept.Write("newer", 5));
  EXPECT_EQ(ReadFileBytes(name_), "old");
  EXPECT_TRUE(kept.Commit());
  EXPECT_FALSE(kept.Write("x", 1));
  EXPECT_EQ(ReadFileBytes(name_), "newer");
  EXPECT_FALSE(HasAside());
}

}  // namespace

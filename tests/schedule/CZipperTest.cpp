#include "schedule/CZipper.h"

#include "tests/support/Test.h"

using zlib::CZipper;

TEST(CZipper, ReadsWhatItWroteAndDoesNothingInTheWrongMode) {
  const TemporaryFolder folder;
  const std::string path = folder.File("file.gz");
  CZipper file;
  char start[4];
  std::unique_ptr<char[]> rest;
  uint32_t size = 0;
  EXPECT_FALSE(file.Open(path.c_str(), CZipper::kRead) || file.Write("x", 1) || file.Read(start, 1) != 0);
  ASSERT_TRUE(file.Open(path.c_str(), CZipper::kWrite));
  EXPECT_TRUE(file.WriteString("hello ") && file.SetParams(0, 0) && file.Write("a\0b", 3));
  EXPECT_FALSE(file.ReadAll(rest, size));
  EXPECT_TRUE(file.Close());
  ASSERT_TRUE(file.Open(path.c_str(), CZipper::kRead));
  EXPECT_FALSE(file.WriteString("x"));
  EXPECT_EQ(file.Read(start, 4), 4U);
  ASSERT_TRUE(file.ReadAll(rest, size));
  EXPECT_EQ(std::string(start, 4) + std::string(rest.get(), size + 1), std::string("hello a\0b\0", 10));
}

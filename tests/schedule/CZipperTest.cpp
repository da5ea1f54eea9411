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
  const auto writes = [&] { return file.Write("x", 1) || file.WriteString("x") || file.SetParams(1, 0); };
  const auto reads = [&] { return file.Read(start, 1) != 0 || file.ReadAll(rest, size); };
  EXPECT_FALSE(writes() || reads());
  ASSERT_TRUE(file.Open(path.c_str(), CZipper::kWrite));
  EXPECT_TRUE(file.IsOpen());
  EXPECT_FALSE(reads());
  EXPECT_TRUE(file.WriteString("hello "));
  EXPECT_TRUE(file.SetParams(0, 0));
  EXPECT_TRUE(file.Write("a\0b", 3));
  EXPECT_TRUE(file.WriteString(nullptr));
  EXPECT_TRUE(file.Close());
  EXPECT_FALSE(file.IsOpen());
  EXPECT_EQ(ReadFileBytes(path).substr(0, 2), "\x1F\x8B");

  ASSERT_TRUE(file.Open(path.c_str(), CZipper::kRead));
  EXPECT_FALSE(writes());
  EXPECT_EQ(file.Read(start, 4), 4U);
  EXPECT_EQ(std::string(start, 4), "hell");
  ASSERT_TRUE(file.ReadAll(rest, size));
  EXPECT_EQ(std::string(rest.get(), size + 1), std::string("o a\0b\0", 6));
  EXPECT_FALSE(reads()) << "nothing is left";
  for (const int32_t mode : {0, 3, -1}) EXPECT_FALSE(file.Open(path.c_str(), mode));
  EXPECT_FALSE(file.Open(folder.File("missing").c_str(), CZipper::kRead));
  EXPECT_FALSE(file.Open(folder.File("no\\folder").c_str(), CZipper::kWrite));
  EXPECT_FALSE(file.IsOpen());
}

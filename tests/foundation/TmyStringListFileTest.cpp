#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "foundation/TmyStringList.h"
#include "tests/support/TestEnvironment.h"

namespace {

TEST(TmyStringListFile, LoadsAFileOrIsEmpty) {
  const TemporaryFolder folder;
  const std::string name = folder.File("eibi.txt"), empty = folder.File("empty.txt");
  ASSERT_TRUE(WriteFileBytes(name, "one\r\ntwo") && WriteFileBytes(empty, ""));
  TmyStringList list;
  list.Add(name.c_str());
  EXPECT_TRUE(list.LoadFromFile(list.Get(0)));
  EXPECT_TRUE(list.LoadFromFile(name.c_str()));  // the first one let the file go
  EXPECT_EQ(list.Count(), 2U);
  EXPECT_EQ(list.Get(1), "two");

  const HANDLE other = CreateFileA(name.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  for (const std::string& bad : {name, empty, folder.File("missing.txt"), folder.Path(), std::string()}) {
    list.Add("old");
    EXPECT_FALSE(list.LoadFromFile(bad.c_str())) << bad;
    EXPECT_EQ(list.Count(), 0U) << bad;
  }
  CloseHandle(other);
}

}  // namespace

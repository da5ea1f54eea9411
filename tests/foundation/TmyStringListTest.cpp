#include "foundation/TmyStringList.h"

#include "tests/support/Test.h"

TEST(TmyStringList, SplitsAnyMixtureOfTerminators) {
  using Strings = std::vector<std::string>;
  const std::pair<std::string, Strings> kCases[] = {{"", {}},
                                                    {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
                                                    {"\n\n\r", {"", "", ""}},
                                                    {"\r\r\n", {"", ""}},
                                                    {std::string("\0a\0\n", 4), {std::string("\0a\0", 3)}}};
  for (const auto& [text, expected] : kCases) {
    TmyStringList list;
    list.SetText((text + "\n").c_str(), static_cast<uint32_t>(text.size()));  // what follows is not ours
    Strings lines;
    for (uint32_t i = 0; i < list.Count(); ++i) lines.emplace_back(list.Get(i).View());
    EXPECT_EQ(lines, expected);
  }
}

TEST(TmyStringList, LoadsAFileOrIsEmpty) {
  const TemporaryFolder folder;
  const std::string name = folder.File("a");
  ASSERT_TRUE(WriteFileBytes(name, "one\r\ntwo"));
  TmyStringList list;
  list.Add(name.c_str());
  EXPECT_TRUE(list.LoadFromFile(list.Get(0)));
  EXPECT_EQ(list.GetCommaText(), "\"one\",\"two\"");
  EXPECT_TRUE(DeleteFileA(name.c_str())) << "the list has let it go";
  for (const std::string& bad : {name, folder.Path(), std::string()}) {
    list.Add("old");
    EXPECT_FALSE(list.LoadFromFile(bad.c_str())) << bad;
    EXPECT_EQ(list.Count(), 0U) << bad;
  }
}

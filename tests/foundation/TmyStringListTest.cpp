#include "foundation/TmyStringList.h"

#include "tests/support/Test.h"

TEST(TmyStringList, SplitsAnyMixtureOfTerminators) {
  using Strings = std::vector<std::string>;
  const std::pair<std::string, Strings> kCases[] = {{"", {}},
                                                    {"a", {"a"}},
                                                    {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
                                                    {"\n\r", {"", ""}},
                                                    {"\r\r\n", {"", ""}},
                                                    {"a\r\n", {"a"}},
                                                    {std::string("\0a\0\n", 4), {std::string("\0a\0", 3)}}};
  for (const auto& [text, expected] : kCases) {
    TmyStringList list;
    list.Add("kept");
    list.SetText((text + "\n").c_str(), static_cast<uint32_t>(text.size()));  // what follows is not ours
    Strings lines;
    for (uint32_t i = 1; i < list.Count(); ++i) lines.emplace_back(list.Get(i).View());
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
  const HANDLE other = CreateFileA(name.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE) << "the list has let it go";
  for (const std::string& bad : {name, folder.File("missing"), folder.Path(), std::string()}) {
    list.Add("old");
    EXPECT_FALSE(list.LoadFromFile(bad.c_str())) << bad;
    EXPECT_EQ(list.Count(), 0U) << bad;
  }
  CloseHandle(other);
}

TEST(TmyStringList, EntriesShareAndOutOfRangeIsEmpty) {
  const TmyString text("a\"c");
  TmyStringList list(1, 3);
  list.Add(text);
  list.Insert("", 0);
  EXPECT_EQ(list.Get(1).Chars(), text.Chars());
  EXPECT_TRUE(list.Get(2).IsEmpty());
  list.Insert(list.Get(0), 99);
  list.Add("beyond the maximum");
  EXPECT_EQ(list.GetCommaText(), "\"\",\"a\"\"c\",\"\"");
  EXPECT_EQ(list.Delete(1), nullptr);
  EXPECT_EQ(list.GetCommaText(), "\"\",\"\"");
  list.Clear();
  EXPECT_EQ(list.GetCommaText(), "");
}

TEST(TmyStringList, FindComparesTheShorterText) {
  TmyStringList list;
  EXPECT_EQ(list.Find("a"), -1);
  for (const char* entry : {"a", "abc", "b", "d"}) list.Add(entry);
  const std::tuple<const char*, uint32_t, uint32_t, int32_t> kCases[] = {
      {"ab", 0, 99, 1}, {"ab", 0, 0, 0}, {"c", 0, 0xFFFFFFFF, -1}, {"A", 0, 99, -1}, {"z", 0, 99, -1},
      {"d", 3, 99, 3},  {"d", 2, 1, -1}, {"a", 99, 0, 0},          {"a", 2, 99, -1}, {"", 0, 99, 1}};
  for (const auto& [key, from, to, expected] : kCases) EXPECT_EQ(list.Find(key, from, to), expected) << key << from;
}

TEST(TmyStringList, InsertPositionIsInFrontOfEquals) {
  TmyStringList list;
  for (const char* entry : {"", "a", "ab", "ab", "\xE0"}) list.Add(entry);
  const std::pair<const char*, uint32_t> kCases[] = {{"", 0}, {"a", 1}, {"aa", 2}, {"ab", 2}, {"b", 4}, {"\xE1", 5}};
  for (const auto& [text, place] : kCases) EXPECT_EQ(list.InsertPosition(text), place) << text;
}

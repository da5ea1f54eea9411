#include "foundation/TmyStringList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

Strings Content(const TmyStringList& list) {
  Strings result;
  for (uint32_t i = 0; i < list.Count(); ++i) result.emplace_back(list.Get(i).View());
  return result;
}

void Fill(TmyStringList& list, const Strings& entries) {
  for (const std::string& entry : entries) list.Add(entry.c_str());
}

TEST(TmyStringList, SplitsLines) {
  const struct {
    std::string_view text;
    Strings expected;
  } kCases[] = {{"", {}},
                {"a\r\nb\rc\nd", {"a", "b", "c", "d"}},
                {"a\n\rb", {"a", "", "b"}},
                {"a\n", {"a"}},
                {"\r\n", {""}},
                {"\r", {""}},
                {std::string_view("a\r\nb", 2), {"a"}},  // the LF is not ours any more
                {"\n\n", {"", ""}},
                {"\r\r\n", {"", ""}},
                {" a \r\n\tb", {" a ", "\tb"}},
                {std::string_view("a\0b\nc", 5), {std::string("a\0b", 3), "c"}}};
  for (const auto& row : kCases) {
    TmyStringList list;
    list.Add("kept");
    list.SetText(row.text.data(), static_cast<uint32_t>(row.text.size()));
    Strings expected = row.expected;
    expected.insert(expected.begin(), "kept");
    EXPECT_EQ(Content(list), expected) << row.text;
  }
}

// Texts of terminators and letters at random, split by an automaton that looks at one byte at a time.
TEST(TmyStringList, SplitsAnyMixtureOfTerminators) {
  std::mt19937 random(20260103);
  for (int round = 0; round < 3000; ++round) {
    std::string text(random() % 24, 'a');
    for (char& character : text) character = "ab\r\n"[random() % 4];
    Strings expected;
    bool open = false;
    for (size_t i = 0; i < text.size(); ++i) {
      if (!open) expected.emplace_back();
      open = text[i] != '\r' && text[i] != '\n';
      if (open) expected.back() += text[i];
      if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    }
    TmyStringList list;
    list.SetText(text.data(), static_cast<uint32_t>(text.size()));
    ASSERT_EQ(Content(list), expected) << round;
  }
}

TEST(TmyStringList, EntriesShareAndOutOfRangeIsEmpty) {
  const TmyString text("abc");
  TmyStringList list(1, 3);
  list.Add(text);
  list.Insert("first", 0);
  EXPECT_EQ(list.Get(1).Chars(), text.Chars());
  EXPECT_TRUE(list.Get(2).IsEmpty());
  EXPECT_TRUE(list.Get(0xFFFFFFFF).IsEmpty());
  EXPECT_EQ(list.Delete(5), nullptr);
  EXPECT_EQ(list.Count(), 2U);
  list.Insert(list.Get(0), 99);
  list.Add("beyond the maximum");
  EXPECT_EQ(Content(list), (Strings{"first", "abc", "first"}));
  EXPECT_EQ(list.Delete(1), nullptr);
  EXPECT_EQ(Content(list), (Strings{"first", "first"}));
}

TEST(TmyStringList, CommaText) {
  const struct {
    Strings entries;
    const char* expected;
  } kCases[] = {{{}, ""}, {{""}, "\"\""}, {{"", ""}, "\"\",\"\""}, {{"x", "a\"b"}, "\"x\",\"a\"\"b\""}};
  for (const auto& row : kCases) {
    TmyStringList list;
    Fill(list, row.entries);
    EXPECT_EQ(list.GetCommaText(), row.expected);
  }
}

TEST(TmyStringList, FindComparesTheShorterText) {
  TmyStringList list;
  EXPECT_EQ(list.Find("a"), -1);
  Fill(list, {"a", "abc", "b", "d"});
  const struct {
    const char* key;
    uint32_t from;
    uint32_t to;
    int32_t expected;
  } kCases[] = {{"ab", 0, 99, 1}, {"ab", 0, 0, 0},  {"b", 0, 0xFFFFFFFF, 2}, {"c", 0, 99, -1},
                {"A", 0, 99, -1}, {"z", 0, 99, -1}, {"d", 3, 99, 3},         {"d", 2, 1, -1},
                {"a", 99, 0, 0},  {"a", 2, 99, -1}, {"", 0, 99, 1},          {"a", 0xFFFFFFFF, 99, 1}};
  for (const auto& row : kCases) EXPECT_EQ(list.Find(row.key, row.from, row.to), row.expected) << row.key << row.from;
}

TEST(TmyStringList, InsertPositionKeepsAListSorted) {
  std::mt19937 random(20260104);
  TmyStringList list;
  Strings model;
  for (int i = 0; i < 500; ++i) {
    const std::string text(random() % 4, static_cast<char>(random() % 2 ? 'a' + random() % 3 : 0xE0 + random() % 3));
    const uint32_t position = list.InsertPosition(text.c_str());
    const auto place = std::lower_bound(model.begin(), model.end(), text);
    ASSERT_EQ(position, static_cast<uint32_t>(place - model.begin()));
    list.Insert(text.c_str(), position);
    model.insert(place, text);
  }
  EXPECT_EQ(Content(list), model);
}

}  // namespace

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

// Texts of terminators, zeros and letters at random, split by an automaton that looks at one byte at a time.
TEST(TmyStringList, SplitsAnyMixtureOfTerminators) {
  std::mt19937 random(20260103);
  for (int round = 0; round < 3000; ++round) {
    std::string whole(24, 'a');
    for (char& character : whole) character = "a \r\n\0"[random() % 5];
    const std::string text = whole.substr(0, random() % 24);  // what follows is not ours, be it a LF
    Strings expected{"kept"};
    bool open = false;
    for (size_t i = 0; i < text.size(); ++i) {
      if (!open) expected.emplace_back();
      open = text[i] != '\r' && text[i] != '\n';
      if (open) expected.back() += text[i];
      if (text[i] == '\r' && text[i + 1] == '\n') ++i;
    }
    TmyStringList list;
    list.Add("kept");
    list.SetText(whole.data(), static_cast<uint32_t>(text.size()));
    ASSERT_EQ(Content(list), expected) << round;
  }
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
  const struct {
    const char* key;
    uint32_t from, to;
    int32_t expected;
  } kCases[] = {{"ab", 0, 99, 1}, {"ab", 0, 0, 0}, {"c", 0, 0xFFFFFFFF, -1}, {"A", 0, 99, -1}, {"z", 0, 99, -1},
                {"d", 3, 99, 3},  {"d", 2, 1, -1}, {"a", 99, 0, 0},          {"a", 2, 99, -1}, {"", 0, 99, 1}};
  for (const auto& row : kCases) EXPECT_EQ(list.Find(row.key, row.from, row.to), row.expected) << row.key << row.from;
}

TEST(TmyStringList, InsertPositionKeepsAListSorted) {
  std::mt19937 random(20260104);
  TmyStringList list;
  Strings model;
  for (int i = 0; i < 500; ++i) {
    const std::string text(random() % 4, static_cast<char>(random() % 2 ? 'a' + random() % 3 : 0xE0 + random() % 3));
    const auto place = std::lower_bound(model.begin(), model.end(), text);
    ASSERT_EQ(list.InsertPosition(text.c_str()), static_cast<uint32_t>(place - model.begin()));
    list.Insert(text.c_str(), static_cast<uint32_t>(place - model.begin()));
    model.insert(place, text);
  }
}

}  // namespace

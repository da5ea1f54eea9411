#include "app/ColumnChoice.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Text(const std::vector<ColumnField>& list) {
  std::string text;
  for (const ColumnField& field : list) text += field.title;
  return text;
}

std::string Text(const ColumnChoice& choice) {
  return Text(choice.Available()) + "|" + Text(choice.Selected());
}

const std::vector<ColumnField> kFields = {{5, "a"}, {0, "b"}, {9, "c"}, {2, "d"}};

TEST(ColumnChoiceTest, StartsWithWhatIsSelectedInItsOrderAndLeavesOutWhatMakesNoSense) {
  EXPECT_EQ(Text(ColumnChoice(kFields, {2, 5})), "bc|da");
  EXPECT_EQ(Text(ColumnChoice(kFields, {9, 77, 9, 0})), "ad|cb");
  EXPECT_FALSE(ColumnChoice(kFields, {77}).IsUsable());
}

TEST(ColumnChoiceTest, EntriesMoveBetweenTheListsAndWithinTheSelected) {
  ColumnChoice choice(kFields, {2});
  EXPECT_EQ(choice.Select(1), 1);
  EXPECT_EQ(choice.Select(0), 2);
  EXPECT_EQ(Text(choice), "c|dba");
  EXPECT_EQ(choice.Move(2, -2), 0);
  EXPECT_EQ(choice.Move(1, 1), 2);
  EXPECT_EQ(Text(choice), "c|abd");
  EXPECT_EQ(choice.SelectedIndices(), (std::vector<uint32_t>{5, 0, 2}));
  EXPECT_EQ(choice.Deselect(2), 1) << "behind c, as in the fields";
  EXPECT_EQ(choice.Deselect(0), 0) << "before it";
  EXPECT_EQ(Text(choice), "acd|b");
}

TEST(ColumnChoiceTest, WhatCannotMoveChangesNothing) {
  ColumnChoice choice(kFields, {2, 5});
  for (const int32_t place : {-1, 2}) {
    EXPECT_EQ(choice.Select(place), ColumnChoice::kNowhere);
    EXPECT_EQ(choice.Deselect(place), ColumnChoice::kNowhere);
    EXPECT_EQ(choice.Move(place, place < 0 ? 1 : -1), ColumnChoice::kNowhere);
  }
  EXPECT_EQ(choice.Move(0, -1), ColumnChoice::kNowhere);
  EXPECT_EQ(choice.Move(1, 1), ColumnChoice::kNowhere);
  EXPECT_EQ(Text(choice), "bc|da");
}

TEST(ColumnChoiceTest, AFullListTakesNoMore) {
  std::vector<ColumnField> fields;
  std::vector<uint32_t> all;
  for (uint32_t i = 0; i < ColumnChoice::kMostSelected + 2; ++i) {
    fields.push_back({i, "x"});
    all.push_back(i);
  }
  ColumnChoice choice(fields, all);
  EXPECT_EQ(choice.Selected().size(), size_t{ColumnChoice::kMostSelected});
  EXPECT_EQ(choice.Select(0), ColumnChoice::kNowhere);
  choice.Deselect(0);
  EXPECT_NE(choice.Select(1), ColumnChoice::kNowhere);
}

}  // namespace

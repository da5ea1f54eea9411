#include "app/ColumnChoice.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Text(const ColumnChoice& choice) {
  std::string text;
  for (const ColumnField& field : choice.Available()) text += field.title;
  for (const ColumnField& field : choice.Selected()) text.append("|").append(field.title);
  return text;
}

const std::vector<ColumnField> kFields = {{5, "a"}, {0, "b"}, {9, "c"}, {2, "d"}};

TEST(ColumnChoiceTest, StartsWithWhatIsSelectedInItsOrderAndLeavesOutWhatMakesNoSense) {
  EXPECT_EQ(Text(ColumnChoice(kFields, {2, 5})), "bc|d|a");
  EXPECT_EQ(Text(ColumnChoice(kFields, {9, 77, 9, 0})), "ad|c|b");
  EXPECT_FALSE(ColumnChoice(kFields, {77}).IsUsable());
}

TEST(ColumnChoiceTest, EntriesMoveBetweenTheListsAndWithinTheSelected) {
  ColumnChoice choice(kFields, {2});
  EXPECT_EQ(choice.Select(1), 1);
  EXPECT_EQ(choice.Select(0), 2);
  EXPECT_EQ(Text(choice), "c|d|b|a");
  EXPECT_EQ(choice.Move(2, -2), 0);
  EXPECT_EQ(choice.Move(1, 1), 2);
  EXPECT_EQ(Text(choice), "c|a|b|d");
  EXPECT_EQ(choice.Deselect(2), 1) << "behind c, as in the fields";
  EXPECT_EQ(choice.Deselect(0), 0) << "before it";
  EXPECT_EQ(Text(choice), "acd|b");
}

TEST(ColumnChoiceTest, WhatCannotMoveChangesNothing) {
  ColumnChoice choice(kFields, {2, 5});
  for (const int32_t place : {-1, 2}) {
    EXPECT_LT(choice.Select(place), 0);
    EXPECT_LT(choice.Deselect(place), 0);
    EXPECT_LT(choice.Move(place, place < 0 ? 1 : -1), 0);
    EXPECT_LT(choice.Move(1, place < 0 ? -2 : 1), 0);
  }
  EXPECT_EQ(Text(choice), "bc|d|a");
}

TEST(ColumnChoiceTest, AFullListTakesNoMore) {
  ColumnChoice choice(std::vector<ColumnField>(ColumnChoice::kMostSelected + 2, {1, "x"}),
                      std::vector<uint32_t>(30, 1));
  EXPECT_EQ(choice.Selected().size(), size_t{ColumnChoice::kMostSelected});
  EXPECT_LT(choice.Select(0), 0);
  choice.Deselect(0);
  EXPECT_GT(choice.Select(1), 0);
}

}  // namespace

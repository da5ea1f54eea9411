#include "app/ColumnChoice.h"

#include "tests/support/Test.h"

namespace {

std::string Text(const ColumnChoice& choice) {
  std::string text;
  for (const ColumnField& field : choice.Available()) text += field.title;
  for (const ColumnField& field : choice.Selected()) text.append("|").append(field.title);
  return text;
}

const std::vector<ColumnField> kFields = {{5, "a"}, {0, "b"}, {9, "c"}, {2, "d"}};

TEST(ColumnChoiceTest, EntriesMoveBetweenTheListsAndWithinTheSelected) {
  ColumnChoice choice(kFields, {2, 77, 2, 5});
  EXPECT_EQ(Text(choice), "bc|d|a") << "without what makes no sense";
  EXPECT_EQ(choice.Select(1), 2);
  EXPECT_EQ(choice.Select(0), 3);
  EXPECT_EQ(Text(choice), "|d|a|c|b");
  EXPECT_EQ(choice.Move(2, -2), 0);
  EXPECT_EQ(choice.Move(1, 2), 3);
  EXPECT_EQ(Text(choice), "|c|a|b|d");
  EXPECT_EQ(choice.Deselect(2), 0);
  EXPECT_EQ(choice.Deselect(2), 1) << "behind b, as in the fields";
  EXPECT_EQ(choice.Deselect(1), 0) << "before both";
  EXPECT_EQ(Text(choice), "abd|c");
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
  ColumnChoice full(std::vector<ColumnField>(ColumnChoice::kMostSelected + 1, {1, "x"}), std::vector<uint32_t>(30, 1));
  EXPECT_EQ(full.Selected().size(), size_t{ColumnChoice::kMostSelected});
  EXPECT_LT(full.Select(0), 0);
}

}  // namespace

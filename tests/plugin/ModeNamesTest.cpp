#include "plugin/ModeNames.h"

#include <gtest/gtest.h>

TEST(ModeNames, NamesTheNumbersOfTheHostAndNoOthers) {
  for (const int32_t number : {-2147483647 - 1, -1, 21, 2147483647}) EXPECT_STREQ(ModeName(number), "") << number;
  EXPECT_STREQ(ModeName(0), "CW");
  EXPECT_STREQ(ModeName(9), "DAB");
  EXPECT_STREQ(ModeName(20), "UDM");
}

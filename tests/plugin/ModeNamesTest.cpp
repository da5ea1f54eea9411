#include "plugin/ModeNames.h"

#include <gtest/gtest.h>

#include <utility>

TEST(ModeNames, NamesEachNumberOfTheHost) {
  const std::pair<int32_t, const char*> kCases[] = {
      {-2147483647 - 1, ""}, {-1, ""},    {0, "CW"},   {1, "AM"}, {5, "USB"},       {9, "DAB"},
      {14, "ISB"},           {18, "DRM"}, {20, "UDM"}, {21, ""},  {2147483647, ""},
  };
  for (const auto& [number, name] : kCases) EXPECT_STREQ(ModeName(number), name) << number;
}

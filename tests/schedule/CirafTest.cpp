#include "schedule/Ciraf.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Zones(std::string_view text) {
  const ZoneSet zones = ParseCiraf(text);
  std::string shown;
  for (uint32_t zone = 0; zone < 200; ++zone) {
    if (!zones.Holds(zone)) continue;
    if (!shown.empty()) shown += ' ';
    shown += std::to_string(zone);
  }
  return shown;
}

}  // namespace

TEST(Ciraf, ReadsZones) {
  const struct {
    const char* text;
    const char* zones;
  } kCases[] = {
      {"", ""},
      {"1,3-5", "1 3 4 5"},
      {"27-31,37", "27 28 29 30 31 37"},
      {"37,27", "27 37"},
      {"7", "7"},
      {"7,", "7"},
      {"5-3", ""},
      {"5-5", "5"},
      {"5-3,9", "9"},
      {"18,28N,48 W", "18 28 48"},
      {"1 2", "12"},
      {",,4", "4"},
      {"-3", "1 2 3"},
      {"3-", ""},
      {"3-,4", "4"},
      {"1-3-5", "3 4 5"},
      {"0,100,101", "100"},
      {"98-4294967297", "98 99 100"},
      {"4294967297", ""},
      {"99999999999999999999-2,8", "8"},
      {"abc", ""},
      {"\xFF\x80-2", "1 2"},
  };
  for (const auto& each : kCases) EXPECT_EQ(Zones(each.text), each.zones) << each.text;
}

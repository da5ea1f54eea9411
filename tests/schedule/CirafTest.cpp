#include "schedule/Ciraf.h"

#include "tests/support/Test.h"

TEST(Ciraf, ReadsZones) {
  const std::pair<const char*, const char*> kCases[] = {{"", ""},
                                                        {"1,3-5", " 1 3 4 5"},
                                                        {"37,27-29", " 27 28 29 37"},
                                                        {"5-3,9", " 9"},
                                                        {"18,28N,48 W", " 18 28 48"},
                                                        {"3-,4", " 4"},
                                                        {"1-3-5", " 3 4 5"},
                                                        {"0,100,101", " 100"},
                                                        {"98-4294967297", " 98 99 100"},
                                                        {"\xFF\x80-2", " 1 2"}};
  for (const auto& [text, expected] : kCases) {
    const ZoneSet zones = ParseCiraf(text);
    std::string shown;
    for (uint32_t zone = 0; zone < 200; ++zone) {
      if (zones.Holds(zone)) shown.append(" ").append(std::to_string(zone));
    }
    EXPECT_EQ(shown, expected) << text;
  }
}

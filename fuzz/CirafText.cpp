#include "fuzz/Fuzz.h"
#include "schedule/Ciraf.h"

// Never more than the numbers of the text and what lies between two of them.
void Try(Input& input) {
  const std::string_view text = input.Rest();
  const ZoneSet zones = ParseCiraf(text);
  REQUIRE(!zones.Holds(0) && !zones.Holds(ZoneSet::kHighest + 1));
  bool isPlain = !text.empty() && text.size() <= 3;
  uint32_t number = 0;
  for (const char c : text) {
    isPlain = isPlain && c >= '0' && c <= '9';
    number = number * 10 + static_cast<uint8_t>(c - '0');
  }
  ZoneSet expected;
  expected.Add(number);
  if (isPlain) REQUIRE(zones == expected);
  REQUIRE(ParseCiraf(std::string(text) + ",") == zones);
}

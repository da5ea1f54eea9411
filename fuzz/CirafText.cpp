#include "fuzz/Fuzz.h"
#include "schedule/Ciraf.h"

static uint32_t NumberIn(std::string_view text) {  // what is no digit is skipped
  uint32_t number = 0;
  for (const char c : text) {
    if (c >= '0' && c <= '9') number = std::min(number * 10 + static_cast<uint32_t>(c - '0'), ZoneSet::kHighest + 1);
  }
  return number;
}

// Beside a plain cut: of each item its last number, or all from the one in front of its last "-" up to it.
void Try(Input& input) {
  const std::string_view text = input.Rest();
  ZoneSet expected;
  for (size_t at = 0, end = 0; at <= text.size(); at = end + 1) {
    end = std::min(text.find(',', at), text.size());
    const std::string_view item = text.substr(at, end - at);
    const size_t dash = item.rfind('-');
    const uint32_t last = NumberIn(dash == item.npos ? item : item.substr(dash + 1));
    const std::string_view front = item.substr(0, dash);
    uint32_t zone = dash == item.npos ? last : NumberIn(front.substr(front.rfind('-') + 1));
    for (; zone <= last && zone <= ZoneSet::kHighest; ++zone) expected.Add(zone);
  }
  REQUIRE(ParseCiraf(text) == expected);
}

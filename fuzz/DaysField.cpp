#include "fuzz/EibiChecks.h"

void Try(Input& input) {
  const std::string_view field = input.Rest();
  EibiItem item;
  item.SetDays(field);
  CheckDays(item);
  REQUIRE(std::strlen(item.rawDays) <= field.size());
  for (size_t day = 0; day < kDaysOfWeek; ++day) {  // a code or a digit alone is its day
    if (field == kDayCodes[day] || field == std::string(1, static_cast<char>('1' + day))) {
      REQUIRE(item.dayMask == DayBit(static_cast<uint32_t>(day)));
    }
  }
}

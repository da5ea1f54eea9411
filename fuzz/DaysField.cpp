#include "fuzz/EibiChecks.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view field = Input(data, size).Rest();
  EibiItem item;
  item.SetDays(field);
  CheckDays(item);
  REQUIRE(std::strlen(item.rawDays) <= field.size());
  for (size_t day = 0; day < kDaysOfWeek; ++day) {  // a code or a digit alone is its day
    if (field == kDayCodes[day] || field == std::string(1, static_cast<char>('1' + day))) {
      REQUIRE(item.dayMask == DayBit(static_cast<uint32_t>(day)));
    }
  }
  return 0;
}

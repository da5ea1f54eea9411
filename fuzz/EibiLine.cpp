#include "fuzz/EibiChecks.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view line = Input(data, size).Rest();
  EibiItem item;
  const bool valid = item.Parse(line);
  REQUIRE(valid == (item.valid == 1) && (!valid || line.size() >= 63));
  if (valid) CheckItem(item);
  EibiItem again;
  std::memset(static_cast<void*>(&again), 0x5A, sizeof again);  // what was there before does not matter
  REQUIRE(again.Parse(line) == valid);
  if (valid) REQUIRE(std::strcmp(again.startText, item.startText) == 0 && again.end == item.end);
  return 0;
}

#include "fuzz/EibiChecks.h"
#include "schedule/EibiReader.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const TemporaryFolder folder;
  const std::string_view content = Input(data, size).Rest();
  REQUIRE(WriteFileBytes(folder.File("eibi.txt"), content));
  const auto items = LoadEibi(folder.Path().c_str());
  for (uint32_t i = 0; i < items->Count(); ++i) CheckItem(*items->Get(i));
  REQUIRE(HoldsEibiBroadcast(content) == (items->Count() > 0));
  return 0;
}

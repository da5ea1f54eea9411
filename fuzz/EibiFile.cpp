#include "fuzz/EibiChecks.h"
#include "schedule/EibiReader.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string folder = ScratchFile("folder");
  static const std::string path = folder + "\\eibi.txt";
  static const bool made = CreateDirectoryA(folder.c_str(), nullptr) != 0;
  REQUIRE(made);
  const std::string_view content = Input(data, size).Rest();
  WriteScratch(path, content);
  const auto items = LoadEibi(folder.c_str());
  for (uint32_t i = 0; i < items->Count(); ++i) CheckItem(*items->Get(i));
  REQUIRE(HoldsEibiBroadcast(content) == (items->Count() > 0));
  return 0;
}

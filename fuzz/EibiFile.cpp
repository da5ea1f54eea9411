#include "fuzz/EibiChecks.h"
#include "schedule/EibiReader.h"

void Try(Input& input) {
  const std::string_view content = input.Rest();
  FileOf("eibi.txt", content);
  const auto items = LoadEibi(PathOf(".").c_str());
  for (uint32_t i = 0; i < items->Count(); ++i) CheckItem(*items->Get(i));
  const bool isPage = content.find('<') != content.npos;  // perhaps
  REQUIRE(HoldsEibiBroadcast(content) == (items->Count() > 0) || (isPage && items->Count() > 0));
}

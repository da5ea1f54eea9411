#include "fuzz/EibiChecks.h"
#include "schedule/EibiReader.h"

void Try(Input& input) {
  const std::string_view content = input.Rest();
  FileOf("eibi.txt", content);
  const auto items = LoadEibi(PathOf(".").c_str());
  for (uint32_t i = 0; i < items->Count(); ++i) CheckItem(*items->Get(i));
  const size_t first = content.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
  const bool isPage = first != std::string_view::npos && content[first] == '<';
  REQUIRE(HoldsEibiBroadcast(content) == (items->Count() > 0 && !isPage));
}

#include "download/IndexPage.h"
#include "fuzz/Fuzz.h"

void Try(Input& input) {
  TmyStringList known, archives;
  for (uint32_t left = input.Take<uint8_t>() % 4; left > 0; --left) known.Add(TmyString(input.TakeText(6)));
  const std::string_view page = input.Rest();
  const bool isIndex = IndexPage::FindArchives(page, known, archives);
  REQUIRE(isIndex == (page.find("<UL>") != std::string_view::npos) && (isIndex || archives.Count() == 0));
  for (uint32_t i = 0; i < archives.Count(); ++i) {
    const std::string_view name = archives.Get(i).View();
    REQUIRE(name.ends_with(".zip") && IndexPage::IsBareFileName(name) && page.find(name) != std::string_view::npos);
    REQUIRE(name.find_first_of("/\\:") == std::string_view::npos);
    for (uint32_t k = 0; k < known.Count(); ++k) REQUIRE(known.Get(k).View() != name.substr(0, name.size() - 4));
  }
}

#include "tests/support/SeasonArchive.h"

#include <cstdlib>
#include <filesystem>

std::string SeasonArchive() {
  const char* named = std::getenv("MARLUX_REAL_DATA");
  for (const std::string folder : {named ? named : "../shared/data", "build/samples"}) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
      if (entry.path().extension() == ".zip") return folder + "\\" + entry.path().filename().string();
    }
  }
  return {};
}

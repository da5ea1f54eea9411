// Marlux 3. Which HFCC archive tests read.
#pragma once

#include <filesystem>
#include <string>

// The first archive of the folder with real schedules; where there is none, the sample that the build makes.
[[nodiscard]] inline std::string SeasonArchive() {
  for (const std::string folder : {"../shared/data", "build/samples"}) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
      if (entry.path().extension() == ".zip") return folder + "\\" + entry.path().filename().string();
    }
  }
  return {};
}

// Marlux 3. Which HFCC archive tests read.
#pragma once

#include <string>

// The first archive of the folder with real schedules; where there is none, the sample that the build makes.
[[nodiscard]] std::string SeasonArchive();

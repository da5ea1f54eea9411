#include "plugin/ModeNames.h"

namespace {

constexpr const char* kNames[] = {"CW",  "AM",  "FMN", "FMW", "LSB", "USB",  "FMM",  "FSK", "AMS",  "DAB", "FM3",
                                  "FM6", "AMN", "DSB", "ISB", "PM",  "AMSU", "AMSL", "DRM", "APCO", "UDM"};
static_assert(sizeof kNames / sizeof *kNames == kModeNameCount);

}  // namespace

const char* ModeName(int32_t number) noexcept {
  return number >= 0 && number < kModeNameCount ? kNames[number] : "";
}

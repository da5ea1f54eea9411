#include "schedule/ModulationNames.h"

#include <array>

namespace {

using Names = std::array<const char*, 256>;

constexpr Names MakeNames() {
  Names names{};
  names['D'] = "Double sideband AM";
  names['N'] = "Digital (DRM)";
  names['S'] = "Single sideband";
  names['T'] = "Single sideband, reduced carrier";
  return names;
}

constexpr Names kNames = MakeNames();

}  // namespace

const char* ModulationName(char modulation) noexcept {
  return kNames[static_cast<unsigned char>(modulation)];
}

// Marlux 3. Where the schedules come from. The names are the build's (MARLUX_EIBI_HOST, MARLUX_HFCC_HOST); a test links
// another unit with the same functions before this library.
#pragma once

#include "foundation/Compiler.h"

namespace ServerNames {

[[nodiscard]] const char* EibiHost() noexcept;
[[nodiscard]] const char* HfccHost() noexcept;
[[nodiscard]] uint16_t Port() noexcept;  // of both

}  // namespace ServerNames

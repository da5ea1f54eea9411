// Marlux 3. Where the schedules come from, and how long to wait. The names are the build's (MARLUX_EIBI_HOST,
// MARLUX_HFCC_HOST); a test links another unit with the same functions before this library.
#pragma once

#include "foundation/Compiler.h"

namespace ServerNames {

[[nodiscard]] const char* EibiHost() noexcept;
[[nodiscard]] const char* HfccHost() noexcept;
[[nodiscard]] uint16_t Port() noexcept;     // of both
[[nodiscard]] uint32_t TimeOut() noexcept;  // milliseconds without data after which a request is given up

}  // namespace ServerNames

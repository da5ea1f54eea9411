// Marlux 3. What the system says of an error code.
#pragma once

#include "foundation/TmyString.h"

// In the user's language, without the line end; the number alone for a code that the system does not know.
[[nodiscard]] TmyString SystemErrorText(uint32_t error);

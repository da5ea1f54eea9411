// Marlux 3. One choice of a text filter.
#pragma once

#include "foundation/TmyString.h"

struct FilterText {
  TmyString shown;  // in the drop-down list
  TmyString value;  // what the filter compares: for a coded field its code
};

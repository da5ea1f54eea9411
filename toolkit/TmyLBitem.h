// Marlux 3. An item of a list box or combo box, and the searches over a list of them.
#pragma once

#include <string_view>

#include "foundation/TmyString.h"
#include "foundation/TmyTypeList.h"

struct TmyLBitem {
  TmyString text;
  uintptr_t data = 0;  // the owner's own; never touched
};

using TmyLBitemList = TmyTypeList<TmyLBitem>;

namespace ListSearch {
// The first item that is, or begins with, the text; -1 when there is none or, for a beginning, the text is empty.
[[nodiscard]] int32_t FindExact(const TmyLBitemList& items, std::string_view text) noexcept;  // bytes as they are
[[nodiscard]] int32_t FindPrefix(const TmyLBitemList& items, std::string_view prefix);        // upper is lower case
}  // namespace ListSearch

// Marlux 3. Reading the file eibi.txt of a folder into records.
#pragma once

#include <memory>

#include "foundation/TmyString.h"
#include "foundation/TmyTypeList.h"
#include "schedule/EibiItem.h"

// The broadcasts of folder\eibi.txt in the order of the file: every readable line after the 17 lines of its header, up
// to the line 262,144. A missing or unreadable file gives an empty list; never null.
[[nodiscard]] std::unique_ptr<TmyTypeList<EibiItem>> LoadEibi(const TmyString& folder);

// Marlux 3. Reading the EiBi schedule, the file eibi.txt of a folder, into records.
#pragma once

#include <memory>
#include <string_view>

#include "foundation/TmyString.h"
#include "foundation/TmyTypeList.h"
#include "schedule/EibiItem.h"

// The broadcasts of folder\eibi.txt in the order of the file: every readable line after the 17 lines of its header, up
// to the line 262,144. A missing or unreadable file gives an empty list; never null.
[[nodiscard]] std::unique_ptr<TmyTypeList<EibiItem>> LoadEibi(const TmyString& folder);

// Whether the content of such a file holds at least one broadcast and is no web page, whose lines may look like one.
// Looks no further than the first broadcast.
[[nodiscard]] bool HoldsEibiBroadcast(std::string_view content);

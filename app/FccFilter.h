// Marlux 3. The filter pass over the HFCC schedule.
#pragma once

#include "app/FilterRecord.h"
#include "foundation/TmyTypeList.h"
#include "schedule/FccItem.h"

// The first three texts are compared with the codes of administration, site and broadcaster, whole and case-sensitive;
// the fourth is the number of a zone, and passes what is meant for that zone among others. A blank time counts as
// 00:00; days and seasons are not looked at.
[[nodiscard]] bool PassesFilter(const FccItem& item, const FilterRecord& filter) noexcept;

// Replaces `passing` by the records that pass, in the order of the database, which keeps owning them, and sets each
// record's shown flag to 1 or 0. When memory is short `passing` holds what fitted, and only that is shown.
void FilterFcc(const TmyTypeList<FccItem>& items, const FilterRecord& filter, TmyList& passing);

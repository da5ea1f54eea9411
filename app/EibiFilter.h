// Marlux 3. The filter pass over the EiBi schedule.
#pragma once

#include "app/FilterRecord.h"
#include "foundation/TmyTypeList.h"
#include "schedule/EibiItem.h"

// The four texts are compared with station, language, target and ITU country code, whole and case-sensitive. A record
// without a time passes no time filter; days of the week are not looked at.
[[nodiscard]] bool PassesFilter(const EibiItem& item, const FilterRecord& filter) noexcept;

// Replaces `passing` by the records that pass, in the order of the database, which keeps owning them, and sets each
// record's shown flag to 1 or 0. When memory is short `passing` holds what fitted, and only that is shown.
void FilterEibi(const TmyTypeList<EibiItem>& items, const FilterRecord& filter, TmyList& passing);

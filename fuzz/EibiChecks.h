// Marlux 3. What holds for every EiBi record, whatever it was read from.
#pragma once

#include "fuzz/Fuzz.h"
#include "schedule/DayTime.h"
#include "schedule/EibiItem.h"

inline void CheckItem(const EibiItem& item) {
  REQUIRE(item.valid == 1 && item.frequency != 0);
  REQUIRE(IsText(item.frequencyText) && IsText(item.startText) && IsText(item.endText) && IsText(item.itu));
  REQUIRE(IsText(item.station) && IsText(item.language) && IsText(item.target) && IsText(item.remarks));
  REQUIRE(IsText(item.rawDays) && IsText(item.daysText) && item.dayMask <= kAllDaysMask);
  for (uint32_t day = 0; day < kDaysOfWeek; ++day) {
    REQUIRE(item.dayFlags[day] == ((item.dayMask & DayBit(day)) != 0 ? 1 : 0));
  }
}

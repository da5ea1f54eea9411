// Marlux 3. What the filter passes of all databases have in common.
#pragma once

#include <cstring>

#include "app/FilterRecord.h"
#include "foundation/Clock.h"
#include "foundation/TmyTypeList.h"

// A filter made ready for many records.
class FilterTest {
 public:
  explicit FilterTest(const FilterRecord& filter) noexcept : filter_(filter) {}

  [[nodiscard]] bool Has(uint32_t flag) const noexcept { return (filter_.flags & flag) != 0; }

  [[nodiscard]] bool PassesFrequency(int32_t hertz) const noexcept {
    const auto value = static_cast<uint32_t>(hertz);
    return !Has(FilterFlag::kFrequency) || (value >= filter_.lowest && value <= filter_.highest);
  }

  // UTC seconds of the day.
  [[nodiscard]] bool PassesTime(int32_t start, int32_t end) const noexcept {
    if (!Has(FilterFlag::kTime)) return true;
    const auto from = static_cast<int32_t>(filter_.from);
    const auto to = static_cast<int32_t>(filter_.to);
    const auto meets = [=](int32_t first, int32_t last) { return end >= first && start <= last; };
    return Has(FilterFlag::kTimeWraps) ? meets(from, kSecondsPerDay) || meets(0, to) : meets(from, to);
  }

  // A whole text; it ends with a zero unless it is as long as the filter's.
  template <size_t kSize>
  [[nodiscard]] bool PassesText(uint32_t flag, const char* text, const char (&wanted)[kSize]) const noexcept {
    return !Has(flag) || strncmp(text, wanted, kSize) == 0;
  }

 private:
  const FilterRecord& filter_;
};

// Replaces `passing` by the records that pass, in the order of the database, which keeps owning them, and sets each
// record's shown flag to 1 or 0. When memory is short `passing` holds what fitted, and only that is shown.
template <class Item, class Passes>
void FilterRecords(const TmyTypeList<Item>& items, TmyList& passing, Passes passes) {
  // Room for all at once and one cut at the end: inserting one by one would cost more than the tests.
  passing.SetSize(items.Size());
  const uint32_t room = passing.Count();
  void** out = passing.Entries();
  uint32_t passed = 0;
  for (uint32_t i = 0; i < items.Count(); ++i) {
    auto* item = static_cast<Item*>(items.Entries()[i]);
    const bool isShown = passed < room && passes(*item);
    item->shown = isShown ? 1 : 0;
    if (isShown) out[passed++] = item;
  }
  passing.SetSize(passed * static_cast<uint32_t>(sizeof(void*)));
}

#include "app/EibiFilter.h"

#include "app/FilterTest.h"

namespace {

// From the cheapest to the dearest.
bool Passes(const EibiItem& item, const FilterRecord& filter, const FilterTest& test) noexcept {
  return test.PassesFrequency(item.frequency) && test.PassesTime(item.start, item.end) &&
         test.PassesText(FilterFlag::kText4, item.itu, filter.text4) &&
         test.PassesText(FilterFlag::kText3, item.target, filter.text3) &&
         test.PassesText(FilterFlag::kText2, item.language, filter.text2) &&
         test.PassesText(FilterFlag::kText1, item.station, filter.text1);
}

}  // namespace

bool PassesFilter(const EibiItem& item, const FilterRecord& filter) noexcept {
  return Passes(item, filter, FilterTest(filter));
}

void FilterEibi(const TmyTypeList<EibiItem>& items, const FilterRecord& filter, TmyList& passing) {
  const FilterTest test(filter);
  FilterRecords(items, passing, [&](const EibiItem& item) { return Passes(item, filter, test); });
}

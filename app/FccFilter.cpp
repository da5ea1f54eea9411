#include "app/FccFilter.h"

#include <algorithm>

#include "app/FilterTest.h"
#include "schedule/WholeNumber.h"

namespace {

class FccTest {
 public:
  explicit FccTest(const FilterRecord& filter) noexcept
      : filter_(filter), test_(filter), zone_(ZoneOf({filter.text4, strnlen(filter.text4, sizeof filter.text4)})) {}

  bool Passes(const FccItem& item) const noexcept {
    return test_.PassesFrequency(item.frequency) && test_.PassesTime(item.start, item.end) &&
           (!test_.Has(FilterFlag::kText4) || item.ciraf.Holds(zone_)) &&
           test_.PassesText(FilterFlag::kText1, item.administrationCode, filter_.text1) &&
           test_.PassesText(FilterFlag::kText2, item.siteCode, filter_.text2) &&
           test_.PassesText(FilterFlag::kText3, item.broadcasterCode, filter_.text3);
  }

 private:
  // No zone for what is no number: nothing holds zone 0.
  static uint32_t ZoneOf(std::string_view text) noexcept {
    return static_cast<uint32_t>(std::max<int32_t>(WholeNumber(text), 0));
  }

  const FilterRecord& filter_;
  FilterTest test_;
  uint32_t zone_;
};

}  // namespace

bool PassesFilter(const FccItem& item, const FilterRecord& filter) noexcept {
  return FccTest(filter).Passes(item);
}

void FilterFcc(const TmyTypeList<FccItem>& items, const FilterRecord& filter, TmyList& passing) {
  const FccTest test(filter);
  FilterRecords(items, passing, [&](const FccItem& item) { return test.Passes(item); });
}

#include "app/EibiFilter.h"

#include <algorithm>
#include <cstring>

namespace {

// A filter made ready for many records: the tests run from the cheapest to the dearest.
class EibiTest {
 public:
  explicit EibiTest(const FilterRecord& filter) noexcept
      : filter_(filter),
        lengths_{LengthWithZero(filter.text1), LengthWithZero(filter.text2), LengthWithZero(filter.text3),
                 LengthWithZero(filter.text4)} {}

  bool Passes(const EibiItem& item) const noexcept {
    if (Has(FilterFlag::kFrequency) && !PassesFrequency(static_cast<uint32_t>(item.frequency))) return false;
    if (Has(FilterFlag::kTime) && !PassesTime(item)) return false;
    if (Has(FilterFlag::kText4) && memcmp(item.itu, filter_.text4, lengths_[3]) != 0) return false;
    if (Has(FilterFlag::kText3) && memcmp(item.target, filter_.text3, lengths_[2]) != 0) return false;
    if (Has(FilterFlag::kText2) && memcmp(item.language, filter_.text2, lengths_[1]) != 0) return false;
    return !Has(FilterFlag::kText1) || memcmp(item.station, filter_.text1, lengths_[0]) == 0;
  }

 private:
  template <size_t kSize>
  static size_t LengthWithZero(const char (&text)[kSize]) noexcept {
    return std::min(strnlen(text, kSize) + 1, kSize);
  }

  bool Has(uint32_t flag) const noexcept { return (filter_.flags & flag) != 0; }

  bool PassesFrequency(uint32_t hertz) const noexcept { return hertz >= filter_.lowest && hertz <= filter_.highest; }

  static bool Meets(const EibiItem& item, int32_t from, int32_t to) noexcept {
    return item.end >= from && item.start <= to;
  }

  bool PassesTime(const EibiItem& item) const noexcept {
    const auto from = static_cast<int32_t>(filter_.from);
    const auto to = static_cast<int32_t>(filter_.to);
    if (!Has(FilterFlag::kTimeWraps)) return Meets(item, from, to);
    return Meets(item, from, kSecondsOfDay) || Meets(item, 0, to);
  }

  const FilterRecord& filter_;
  size_t lengths_[4];
};

}  // namespace

bool PassesFilter(const EibiItem& item, const FilterRecord& filter) noexcept {
  return EibiTest(filter).Passes(item);
}

void FilterEibi(const TmyTypeList<EibiItem>& items, const FilterRecord& filter, TmyList& passing) {
  // Room for all at once and one cut at the end: inserting one by one would cost more than the tests.
  passing.SetSize(items.Size());
  const uint32_t room = passing.Count();
  const EibiTest test(filter);
  void** out = passing.Entries();
  uint32_t passed = 0;
  for (uint32_t i = 0; i < items.Count(); ++i) {
    auto* item = static_cast<EibiItem*>(items.Entries()[i]);
    const bool passes = passed < room && test.Passes(*item);
    item->shown = passes ? 1 : 0;
    if (passes) out[passed++] = item;
  }
  passing.SetSize(passed * static_cast<uint32_t>(sizeof(void*)));
}

#include "schedule/EibiPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <set>
#include <vector>

#include "schedule/EibiItem.h"

// Records of several chunks and of their own, freed in any order, some after their pool: each keeps its bytes until it
// goes, and no two share memory.
TEST(EibiPool, RecordsLiveAndGoOneByOne) {
  std::vector<std::unique_ptr<EibiItem>> items;
  {
    EibiPool pool;
    delete new (pool) EibiItem;  // the only one of its chunk, which goes on
    for (int32_t i = 0; i < 1000; ++i) {
      items.emplace_back(i % 10 == 0 ? new EibiItem : new (pool) EibiItem);
      items.back()->frequency = i;
      memset(items.back()->remarks, i & 0x7F, sizeof items.back()->remarks);
    }
  }
  std::set<const char*> places;
  for (const auto& item : items) places.insert(reinterpret_cast<const char*>(item.get()));
  for (auto place = places.begin(), next = std::next(place); next != places.end(); ++place, ++next) {
    ASSERT_GE(*next - *place, static_cast<ptrdiff_t>(sizeof(EibiItem)));
  }
  std::shuffle(items.begin(), items.end(), std::mt19937(11));
  while (!items.empty()) {
    ASSERT_EQ(items.back()->remarks[19], items.back()->frequency & 0x7F);
    items.pop_back();
  }
}

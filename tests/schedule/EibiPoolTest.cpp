#include "schedule/EibiPool.h"

#include "schedule/EibiItem.h"
#include "tests/support/Test.h"

// Records of several chunks and of their own, freed in any order, some after their pool: each keeps its bytes until it
// goes.
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
  std::shuffle(items.begin(), items.end(), std::mt19937(11));
  for (; !items.empty(); items.pop_back()) {
    ASSERT_EQ(items.back()->remarks[19], items.back()->frequency & 0x7F);
  }
}

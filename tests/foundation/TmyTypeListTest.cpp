#include "foundation/TmyTypeList.h"
#include "tests/support/Test.h"

namespace {

struct Item {
  explicit Item(char letter) : name(letter) {}
  ~Item() { log += name; }
  char name;
  static inline std::string log;
};

}  // namespace

// What the lists hold is tested against std::vector, see fuzz/ListModel.cpp.
TEST(TmyTypeList, DestroysItsItemsOnce) {
  {
    TmyTypeList<Item> list(1, 4);
    for (const char name : {'a', 'b', 'c', 'd'}) EXPECT_TRUE(list.Add(std::make_unique<Item>(name)));
    EXPECT_FALSE(list.Insert(std::make_unique<Item>('x'), 0));  // no room for it
    EXPECT_EQ(list.Delete(1), nullptr);
    EXPECT_EQ(Item::log, "xb");
    EXPECT_EQ(list.Extract(9), nullptr);
    EXPECT_EQ(list.Extract(0)->name, 'a');
  }
  EXPECT_EQ(Item::log, "xbadc");  // the list's own from the last one down
}

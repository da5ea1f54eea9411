#include "foundation/TmyList.h"

#include "foundation/TmyTypeList.h"
#include "tests/support/Test.h"

namespace {

int things[8];

TEST(TmyList, OutOfRangeIsNeutral) {
  TmyList list;
  for (const int i : {0, 1, 0}) list.Add(&things[i]);
  for (const uint32_t index : {3U, 0xFFFFFFFFU}) {
    list.Get(index) = &things[7];  // lands in the shared empty entry
    EXPECT_EQ(list.Get(index), nullptr);
    list.Exchange(2, index);
  }
  EXPECT_EQ(list.IndexOf(&things[0]), 2);
  EXPECT_EQ(list.IndexOf(&things[7]), -1);
}

TEST(TmyList, DropsInsertsAtItsMaximum) {
  const std::tuple<uint32_t, uint32_t, uint32_t, uint32_t, uint32_t> kCases[] = {
      {2, 3, 9, 3, 12}, {0, 5, 9, 5, 20}, {4, 2, 9, 2, 16}, {1, 0, 9, 9, 64}, {0xFFFFFFFF, 0, 3, 3, 16}};
  for (const auto& [initial, maximum, inserts, count, bytes] : kCases) {
    TmyList list(initial, maximum);
    for (uint32_t i = 0; i < inserts; ++i) list.Add(&things[0]);
    EXPECT_EQ(list.Count(), count) << initial << " " << maximum;
    EXPECT_EQ(list.Capacity(), bytes) << initial << " " << maximum;
  }
}

TEST(TmyList, GivesMemoryBackAndKeepsToWholeEntries) {
  TmyList list(4, 0);
  for (int i = 0; i < 100; ++i) list.Add(&things[0]);
  while (list.Count() > 1) list.Delete(0);
  EXPECT_EQ(list.Capacity(), 32U);
  list.Clear();
  EXPECT_EQ(list.Capacity(), 16U);
  list.Reserve(19);
  list.SetSize(17);
  list.Add(&things[1]);  // room for a part of an entry is no room
  EXPECT_EQ(list.Get(4), &things[1]);
}

struct Item {
  explicit Item(char letter) : name(letter) {}
  ~Item() { log += name; }
  char name;
  static inline std::string log;
};

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

}  // namespace

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

TEST(TmyList, BehavesLikeAVector) {
  std::mt19937 random(20260102);
  TmyList list;
  std::vector<void*> model;
  for (int step = 0; step < 20000; ++step) {
    void* const item = &things[random() % 8];
    const auto count = static_cast<uint32_t>(model.size());
    const auto index = static_cast<uint32_t>(random() % (count + 3));
    const auto kind = random() % 5;
    if (kind < 2) {
      list.Insert(item, index);
      model.insert(model.begin() + std::min(index, count), item);
    } else if (kind < 4) {
      ASSERT_EQ(list.Delete(index), index < count ? model[index] : nullptr) << step;
      if (index < count) model.erase(model.begin() + index);
    } else {
      list.Exchange(index, count / 2);
      if (index < count) std::swap(model[index], model[count / 2]);
    }
    const auto last = std::find(model.rbegin(), model.rend(), item);
    ASSERT_EQ(list.IndexOf(item), model.rend() - last - 1) << step;
    ASSERT_EQ(std::vector<void*>(list.Entries(), list.Entries() + list.Count()), model) << step;
  }
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

#include "foundation/TmyList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "foundation/TmyTypeList.h"

namespace {

int things[8];

TEST(TmyList, OutOfRangeIsNeutral) {
  TmyList list;
  for (int i = 0; i < 3; ++i) list.Add(&things[i]);
  for (const uint32_t index : {3U, 5U, 0xFFFFFFFFU}) {
    EXPECT_EQ(list.Delete(index), nullptr);
    list.Get(index) = &things[7];  // lands in the shared empty entry
    EXPECT_EQ(list.Get(index), nullptr);
    list.Exchange(0, index);
  }
  EXPECT_EQ(list.Count(), 3U);
  EXPECT_EQ(list.Get(0), &things[0]);
  list.Insert(&things[3], 99);
  EXPECT_EQ(list.IndexOf(&things[3]), 3);
  list.Insert(&things[3], 0);
  EXPECT_EQ(list.IndexOf(&things[3]), 4);
  EXPECT_EQ(list.IndexOf(&things[7]), -1);
}

TEST(TmyList, DropsInsertsAtItsMaximum) {
  const struct {
    uint32_t initial;
    uint32_t maximum;
    uint32_t inserts;
    uint32_t count;
    uint32_t capacity;  // bytes
  } kCases[] = {{2, 3, 9, 3, 12}, {0, 5, 9, 5, 20},          {4, 2, 9, 2, 16},
                {1, 0, 9, 9, 64}, {0, 0x40000001, 3, 3, 16}, {0xFFFFFFFF, 0, 3, 3, 16}};
  for (const auto& row : kCases) {
    TmyList list(row.initial, row.maximum);
    for (uint32_t i = 0; i < row.inserts; ++i) list.Add(&things[i % 8]);
    EXPECT_EQ(list.Count(), row.count) << row.initial << " " << row.maximum;
    EXPECT_EQ(list.Capacity(), row.capacity) << row.initial << " " << row.maximum;
  }
}

TEST(TmyList, RoomForAPartOfAnEntryIsNoRoom) {
  TmyList list(1, 0);
  list.Reserve(7);
  list.SetSize(5);
  list.Add(&things[1]);
  EXPECT_EQ(list.Count(), 2U);
  EXPECT_EQ(list.Get(1), &things[1]);
  EXPECT_GE(list.Capacity(), 8U);
}

TEST(TmyList, DeletingGivesMemoryBack) {
  TmyList list(4, 0);
  for (int i = 0; i < 100; ++i) list.Add(&things[0]);
  EXPECT_EQ(list.Capacity(), 512U);
  while (list.Count() > 1) list.Delete(0);
  EXPECT_EQ(list.Capacity(), 32U);
  list.Reserve(1000);
  list.Clear();
  EXPECT_EQ(list.Capacity(), 16U);
}

TEST(TmyList, BehavesLikeAVector) {
  std::mt19937 random(20260102);
  TmyList list;
  std::vector<void*> model;
  for (int step = 0; step < 20000; ++step) {
    void* const item = &things[random() % 8];
    const auto count = static_cast<uint32_t>(model.size());
    const auto index = static_cast<uint32_t>(random() % (count + 3));
    switch (random() % 5) {
      case 0:
      case 1:
        list.Insert(item, index);
        model.insert(model.begin() + std::min(index, count), item);
        break;
      case 2: {
        void* const expected = index < count ? model[index] : nullptr;
        ASSERT_EQ(list.Delete(index), expected) << step;
        if (index < count) model.erase(model.begin() + index);
        break;
      }
      case 3:
        list.Exchange(index, count / 2);
        if (index < count) std::swap(model[index], model[count / 2]);
        break;
      default:
        if (random() % 200 == 0) list.Clear(), model.clear();
    }
    ASSERT_EQ(std::vector<void*>(list.Entries(), list.Entries() + list.Count()), model) << step;
  }
}

struct Item {
  Item(std::string* log, char name) : log_(log), name_(name) {}
  ~Item() { *log_ += name_; }
  std::string* log_;
  char name_;
};

TEST(TmyTypeList, DestroysItsItemsOnce) {
  std::string log;
  {
    TmyTypeList<Item> list(1, 4);
    for (const char name : {'a', 'b', 'c', 'd'}) EXPECT_TRUE(list.Add(std::make_unique<Item>(&log, name)));
    EXPECT_FALSE(list.Insert(std::make_unique<Item>(&log, 'x'), 0));
    EXPECT_EQ(log, "x");  // no room for it
    EXPECT_EQ(list.Delete(1), nullptr);
    EXPECT_EQ(list.Delete(9), nullptr);
    EXPECT_EQ(log, "xb");
    EXPECT_EQ(list.Extract(9), nullptr);
    EXPECT_EQ(list.Extract(0)->name_, 'a');
    EXPECT_EQ(log, "xba");
    EXPECT_EQ(list.Get(0)->name_, 'c');
    EXPECT_EQ(list.Get(2), nullptr);
  }
  EXPECT_EQ(log, "xbadc");  // from the last one down
}

}  // namespace

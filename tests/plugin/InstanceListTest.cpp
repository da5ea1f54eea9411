#include "plugin/InstanceList.h"

#include <gmock/gmock.h>

#include <vector>

using testing::ElementsAre;

namespace {

struct Window final : PluginInstance {
  explicit Window(uint32_t handle) {
    SetHostHandle(handle);
    SetNewestInstance(this);
    Instances().Push(*this);
  }
  void Notification(uint32_t code, uint32_t a, uint32_t b, uint32_t c) override {
    received.push_back({code, a, b, c});
    if (code == 0x4000) delete this;
  }

  std::vector<std::vector<uint32_t>> received;
};

std::vector<uint32_t> Handles() {
  std::vector<uint32_t> handles;
  for (auto* at = Instances().Head(); at; at = at->NextInstance()) handles.push_back(at->HostHandle());
  return handles;
}

}  // namespace

TEST(InstanceList, RoutesByHandleAndDropsTheRest) {
  Window seven(7), older(9);
  auto* younger = new Window(9);  // goes with its closing
  Instances().Notify(9, 0x800, 1, 2, 3);
  Instances().Notify(8, 0x800, 0, 0, 0);
  EXPECT_THAT(younger->received, ElementsAre(ElementsAre(0x800, 1, 2, 3)));
  Instances().Notify(9, 0x4000, 0, 0, 0);
  Instances().Notify(7, 0xE07, 3, 0, 5);
  EXPECT_THAT(seven.received, ElementsAre(ElementsAre(0xE07, 3, 0, 5)));
  EXPECT_THAT(Handles(), ElementsAre(9, 7));
}

TEST(InstanceList, RemovesAtHeadMiddleAndEnd) {
  Window one(1), two(2), three(3), four(4);
  Instances().Remove(three);
  Instances().Remove(one);
  Instances().Remove(one);
  EXPECT_THAT(Handles(), ElementsAre(4, 2));
  Instances().Remove(four);
  EXPECT_THAT(Handles(), ElementsAre(2));
}

TEST(InstanceList, TheNewestNeverDangles) {
  {
    Window first(1);
    {
      Window second(2), third(3);
      Instances().Remove(second);
      EXPECT_EQ(NewestInstance(), &third);
      Instances().Remove(third);
      EXPECT_EQ(NewestInstance(), &first);
      SetNewestInstance(&second);  // made but not in the list
    }
    EXPECT_EQ(NewestInstance(), &first);
  }
  EXPECT_EQ(NewestInstance(), nullptr);
}

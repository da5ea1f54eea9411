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

TEST(InstanceList, RemovesAnywhereAndTheNewestNeverDangles) {
  {
    Window one(1), two(2), three(3);
    {
      Window four(4), five(5);
      for (Window* each : {&three, &one, &one, &four}) Instances().Remove(*each);
      EXPECT_THAT(Handles(), ElementsAre(5, 2));
      EXPECT_EQ(NewestInstance(), &five);
      Instances().Remove(five);
      EXPECT_EQ(NewestInstance(), &two);
      SetNewestInstance(&four);  // made but not in the list
    }
    EXPECT_EQ(NewestInstance(), &two);
  }
  EXPECT_EQ(NewestInstance(), nullptr);
}

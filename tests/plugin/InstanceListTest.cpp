#include "plugin/InstanceList.h"

#include "tests/support/Test.h"

namespace {

std::vector<uint32_t> received;  // codes

struct Window final : PluginInstance {
  explicit Window(uint32_t handle) {
    SetHostHandle(handle);
    SetNewestInstance(this);
    Instances().Push(*this);
  }
  void Notification(uint32_t code, uint32_t, uint32_t, uint32_t) override {
    received.push_back(code);
    delete this;
  }
};

std::vector<uint32_t> Handles() {
  std::vector<uint32_t> handles;
  for (auto* at = Instances().Head(); at; at = at->NextInstance()) handles.push_back(at->HostHandle());
  return handles;
}

}  // namespace

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
    new Window(2);  // deleted by its notification
    for (const uint32_t handle : {9u, 2u}) Instances().Notify(handle, handle, 0, 0, 0);
    EXPECT_THAT(received, ElementsAre(2)) << "the younger one of the same handle";
    EXPECT_THAT(Handles(), ElementsAre(2));
  }
  EXPECT_EQ(NewestInstance(), nullptr);
}

#include "foundation/TmyBuffer.h"

#include "tests/support/Test.h"

TEST(TmyBuffer, GrowsByDoublingUpToItsMaximumAndHalvesOnceACall) {
  TmyBuffer buffer(100, 1000);
  const std::pair<uint32_t, uint32_t> kSteps[] = {{100, 100},  {101, 200}, {800, 800}, {0xFFFFFFFF, 1000},
                                                  {100, 1000},  // what was in use is kept until the next call
                                                  {100, 500},  {9, 250},   {0, 125},   {0, 100}};
  for (const auto& [size, capacity] : kSteps) {
    buffer.SetSize(size);
    EXPECT_EQ(buffer.Capacity(), capacity) << size;
    EXPECT_EQ(buffer.Size(), std::min(size, capacity));
  }
}

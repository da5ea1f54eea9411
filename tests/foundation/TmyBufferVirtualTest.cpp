#include "foundation/TmyBufferVirtual.h"

#include "tests/support/Test.h"

TEST(TmyBufferVirtual, CommitsWholePagesAndNeverMoves) {
  TmyBufferVirtual buffer(1, 10 * 4096 - 5);
  EXPECT_EQ(buffer.Maximum(), 10U * 4096);
  const uint8_t* const data = buffer.Data();
  const std::pair<uint32_t, uint32_t> kSteps[] = {{1, 1},    {4097, 2},        {5 * 4096, 8}, {9 * 4096, 10}, {4096, 9},
                                                  {4095, 5}, {0xFFFFFFFF, 10}, {0, 10},       {0, 5}};
  for (const auto& [size, pages] : kSteps) {
    buffer.SetSize(size);
    EXPECT_EQ(buffer.Capacity(), pages * 4096) << size;
    EXPECT_EQ(buffer.Data(), data);
    std::memset(buffer.Data(), 1, buffer.Size());  // every byte of it is there
  }
  EXPECT_EQ(buffer.Reserve(0), 4096U);
}

TEST(TmyBufferVirtual, TakesLessAddressSpaceOrThrows) {
  TmyBufferVirtual large(0, 0xFFFFFFFF);
  EXPECT_GT(large.Maximum(), 0x1000000U);
  EXPECT_LT(large.Maximum(), 0xFFFFF000U);
  EXPECT_EQ(large.Capacity(), 0U);
  large.SetSize(1);
  EXPECT_EQ(large.Capacity(), 4096U);
  EXPECT_THROW(TmyBufferVirtual(0xFFFFFFFF, 0), std::runtime_error);
}

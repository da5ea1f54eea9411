#include "foundation/TmyBufferVirtual.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

namespace {

TEST(TmyBufferVirtual, CommitsWholePagesAndNeverMoves) {
  TmyBufferVirtual buffer(1, 10 * 4096 - 5);
  const uint32_t page = buffer.PageSize();
  ASSERT_EQ(page, 4096U);
  EXPECT_EQ(buffer.Maximum(), 10 * page);
  const uint8_t* const data = buffer.Data();
  const struct {
    uint32_t size;
    uint32_t pages;
  } kSteps[] = {{1, 1},    {4097, 2},        {5 * 4096, 8}, {9 * 4096, 10}, {4096, 9},
                {4095, 5}, {0xFFFFFFFF, 10}, {0, 10},       {0, 5}};
  for (const auto& step : kSteps) {
    buffer.SetSize(step.size);
    EXPECT_EQ(buffer.Capacity(), step.pages * page) << step.size;
    EXPECT_EQ(buffer.Data(), data);
    if (buffer.Size() > 0) std::memset(buffer.Data(), 1, buffer.Size());  // every byte of it is there
  }
  EXPECT_EQ(buffer.Reserve(0), page);
}

TEST(TmyBufferVirtual, TakesLessAddressSpaceOrThrows) {
  TmyBufferVirtual large(0, 0xFFFFFFFF);
  EXPECT_GT(large.Maximum(), 0x1000000U);
  EXPECT_LT(large.Maximum(), 0xFFFFF000U);
  EXPECT_EQ(large.Capacity(), 0U);
  large.SetSize(1);
  EXPECT_EQ(large.Capacity(), large.PageSize());
  try {
    const TmyBufferVirtual impossible(0xFFFFFFFF, 0);
    FAIL() << "committed the whole address space";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "No memory");
  }
}

}  // namespace

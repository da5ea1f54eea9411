#include "foundation/TmyBuffer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string_view>

namespace {

TEST(TmyBuffer, GrowsByDoublingAndHalvesOnceACall) {
  TmyBuffer buffer;
  ASSERT_EQ(buffer.Capacity(), 97U);
  ASSERT_EQ(buffer.Maximum(), 524288000U);
  const struct {
    uint32_t size;
    uint32_t capacity;
  } kSteps[] = {{97, 97},     {98, 194},  {1000, 1552}, {194, 1552}, {193, 776}, {90, 388},
                {1000, 1552}, {10, 1000},  // what was in use is kept until the next call
                {10, 500},    {10, 250},  {10, 125},    {10, 97},    {0, 97},    {600'000'000, 524288000}};
  for (const auto& step : kSteps) {
    buffer.SetSize(step.size);
    EXPECT_EQ(buffer.Capacity(), step.capacity) << step.size;
    EXPECT_EQ(buffer.Size(), step.size > 524288000 ? 524288000 : step.size);
    EXPECT_EQ(buffer.FreeRoom(), buffer.Capacity() - buffer.Size());
  }
}

TEST(TmyBuffer, ReserveKeepsItsBounds) {
  TmyBuffer buffer(10, 50);
  const struct {
    uint32_t asked;
    uint32_t got;
  } kCases[] = {{30, 30}, {0, 10}, {51, 50}, {0xFFFFFFFF, 50}};
  for (const auto& row : kCases) EXPECT_EQ(buffer.Reserve(row.asked), row.got) << row.asked;
  buffer.SetSize(20);
  EXPECT_EQ(buffer.Reserve(0), 20U);
  EXPECT_EQ(TmyBuffer(0, 0).Reserve(0), 4U);
  TmyBuffer tiny(1, 2);
  tiny.SetSize(9);
  EXPECT_EQ(tiny.Size(), 2U);
  EXPECT_EQ(tiny.Capacity(), 4U);
}

TEST(TmyBuffer, ShortOfMemoryKeepsWhatItHas) {
  TmyBuffer buffer(8, 0);
  buffer.SetSize(8);
  std::memcpy(buffer.Data(), "12345678", 8);
  EXPECT_EQ(buffer.Reserve(0xFFFFFFFF), 8U);
  buffer.SetSize(0xFFFFFFFF);
  EXPECT_EQ(buffer.Size(), 8U);
  EXPECT_EQ(std::memcmp(buffer.Data(), "12345678", 8), 0);
  TmyBuffer impossible(0xFFFFFFFF, 0);
  EXPECT_EQ(impossible.Capacity(), 0U);
  impossible.SetSize(3);
  EXPECT_EQ(impossible.Size(), 3U);
}

TEST(TmyBuffer, DeleteRangeIgnoresWhatLiesOutside) {
  const struct {
    uint32_t offset;
    uint32_t count;
    const char* left;
  } kCases[] = {{0, 0, "abcdef"}, {0, 2, "cdef"},
                {4, 2, "abcd"},   {4, 0xFFFFFFFF, "abcd"},
                {6, 1, "abcdef"}, {0xFFFFFFFF, 0xFFFFFFFF, "abcdef"},
                {1, 4, "af"},     {0, 6, ""}};
  for (const auto& row : kCases) {
    TmyBuffer buffer;
    buffer.SetSize(6);
    std::memcpy(buffer.Data(), "abcdef", 6);
    EXPECT_TRUE(buffer.DeleteRange(row.offset, row.count));
    EXPECT_EQ(std::string_view(reinterpret_cast<const char*>(buffer.Data()), buffer.Size()), row.left);
  }
}

}  // namespace

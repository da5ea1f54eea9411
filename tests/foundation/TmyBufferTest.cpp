#include "foundation/TmyBuffer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

#include "foundation/TmyBufferVirtual.h"
#include "foundation/TmyStream.h"

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

TEST(TmyStream, IsAQueueOfBytes) {
  TmyStream stream(4, 10);
  EXPECT_EQ(stream.Write("abcdef", 6), 6U);
  EXPECT_EQ(stream.Capacity(), 8U);
  char out[16] = {};
  EXPECT_EQ(stream.Read(out, 7, true), 0U);
  EXPECT_EQ(stream.Read(out, 3, false), 3U);
  EXPECT_EQ(stream.Read(nullptr, 2, true), 2U);
  EXPECT_EQ(stream.Read(out + 3, 4, true), 4U);
  EXPECT_STREQ(out, "abccdef");
  EXPECT_EQ(stream.Write("0123456789ABC", 13), 10U);  // the rest passes the maximum
  EXPECT_EQ(stream.Write("x", 1), 0U);
  EXPECT_EQ(std::memcmp(stream.Lock(), "0123456789", 10), 0);
  stream.UnlockAndConsume(8);
  EXPECT_EQ(stream.Size(), 2U);
  EXPECT_EQ(stream.Write(stream.Data(), 2), 2U);
  EXPECT_EQ(std::memcmp(stream.Lock(), "8989", 4), 0);
  stream.UnlockAndConsume(0xFFFFFFFF);
  EXPECT_EQ(stream.Size(), 0U);
  stream.Write("y", 1);
  stream.Clear();
  EXPECT_EQ(stream.Size(), 0U);
  EXPECT_EQ(stream.Capacity(), 4U);
}

TEST(TmyStream, ShortOfMemoryWritesNothingOrAPart) {
  TmyStream stream(0, 0);
  EXPECT_EQ(stream.Write(nullptr, 5), 0U);
  EXPECT_EQ(stream.Write("abc", 3), 3U);
  EXPECT_EQ(stream.Size(), 3U);
  EXPECT_EQ(stream.Capacity(), 4U);
}

TEST(TmyObject, TakesTheSharedStamp) {
  TmyObject::SetSharedStamp(5);
  TmyBuffer first;
  TmyObject::SetSharedStamp(6);
  const TmyBuffer second;
  first.SetTag(9);
  EXPECT_EQ(first.Stamp(), 5U);
  EXPECT_EQ(second.Stamp(), 6U);
  EXPECT_EQ(first.Tag(), 9U);
  EXPECT_EQ(second.Tag(), 0U);
}

}  // namespace

#include "foundation/TmyBuffer.h"

#include "tests/support/Test.h"

TEST(TmyBuffer, GrowsByDoublingAndHalvesOnceACall) {
  TmyBuffer buffer;
  const std::pair<uint32_t, uint32_t> kSteps[] = {
      {97, 97},  {194, 194},   {195, 388}, {1000, 1552}, {194, 1552}, {193, 776},
      {90, 388}, {1000, 1552}, {10, 1000},  // what was in use is kept until the next call
      {10, 500}, {10, 250},    {10, 125},  {10, 97},     {0, 97},     {600'000'000, 524288000}};
  for (const auto& [size, capacity] : kSteps) {
    buffer.SetSize(size);
    EXPECT_EQ(buffer.Capacity(), capacity) << size;
    EXPECT_EQ(buffer.Size(), std::min(size, capacity));
  }
  TmyBuffer narrow(10, 50);
  for (const auto& [asked, got] : {std::pair(30U, 30U), {0U, 10U}, {51U, 50U}, {0xFFFFFFFFU, 50U}}) {
    EXPECT_EQ(narrow.Reserve(asked), got) << asked;
  }
}

TEST(TmyBuffer, ShortOfMemoryItWorksOn) {
  TmyBuffer impossible(0xFFFFFFFF, 0);
  EXPECT_EQ(impossible.Capacity(), 0U);
  impossible.SetSize(3);
  EXPECT_EQ(impossible.Size(), 3U);
}

TEST(TmyBuffer, DeletesWhatLiesInsideAndKeepsTheRestAlsoShortOfMemory) {
  const std::tuple<uint32_t, uint32_t, const char*> kCases[] = {
      {0, 2, "cdef"}, {4, 0xFFFFFFFF, "abcd"}, {6, 1, "abcdef"}, {1, 4, "af"}, {0, 6, ""}};
  for (const auto& [offset, count, left] : kCases) {
    TmyBuffer buffer(6, 0);
    buffer.SetSize(6);
    std::copy_n("abcdef", 6, buffer.Data());
    buffer.SetSize(0xFFFFFFFF);
    EXPECT_TRUE(buffer.DeleteRange(offset, count));
    EXPECT_EQ(std::string(buffer.Data(), buffer.Data() + buffer.Size()), left);
  }
}

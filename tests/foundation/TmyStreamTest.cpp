#include "foundation/TmyStream.h"

#include "tests/support/Test.h"

TEST(TmyStream, IsAQueueOfBytes) {
  TmyStream stream(4, 10);
  EXPECT_EQ(stream.Write(nullptr, 5), 0U);
  EXPECT_EQ(stream.Write("abcdef", 6), 6U);
  char out[16] = {};
  EXPECT_EQ(stream.Read(out, 7, true), 0U);
  EXPECT_EQ(stream.Read(out, 3, false), 3U);
  EXPECT_EQ(stream.Read(nullptr, 2, true), 2U);
  EXPECT_EQ(stream.Read(out + 3, 4, true), 4U);
  EXPECT_STREQ(out, "abccdef");
  EXPECT_EQ(stream.Write("0123456789ABC", 13), 10U);  // the rest passes the maximum
  EXPECT_EQ(std::memcmp(stream.Lock(), "0123456789", 10), 0);
  stream.UnlockAndConsume(8);
  EXPECT_EQ(stream.Size(), 2U);
  stream.Clear();
  EXPECT_EQ(stream.Capacity(), 4U);
  TmyStream narrow(8, 4);  // has more than its maximum from the start
  EXPECT_EQ(narrow.Write("abcdef", 6), 4U);
}

TEST(TmyStream, WritesItsOwnBytesWhileItsBlockMoves) {
  constexpr uint32_t kHalf = 1 << 24;  // so large that the old block's pages go back to the system
  TmyStream stream(kHalf, 0);
  stream.Write(std::string(kHalf, 'x').data(), kHalf);
  EXPECT_EQ(stream.Write(stream.Lock(), kHalf), kHalf);
  stream.UnlockAndConsume(kHalf);
  EXPECT_EQ(stream.Data()[kHalf - 1], 'x');
}

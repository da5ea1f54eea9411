#include "foundation/TmyBufferVirtual.h"

#include "tests/support/Test.h"

TEST(TmyBufferVirtual, CommitsWholePagesAndNeverMoves) {
  TmyBufferVirtual buffer(1, 10 * 4096 - 5);
  const uint8_t* const data = buffer.Data();
  for (const auto& [size, pages] :
       {std::pair(4097U, 2U), {9 * 4096U, 10U}, {4095U, 9U}, {4095U, 5U}, {0xFFFFFFFFU, 10U}}) {
    buffer.SetSize(size);
    EXPECT_EQ(buffer.Capacity(), pages * 4096) << size;
    EXPECT_EQ(buffer.Data(), data);
    std::memset(buffer.Data(), 1, buffer.Size());  // every byte of it is there
  }
  EXPECT_LT(TmyBufferVirtual(0, 0xFFFFFFFF).Maximum(), 0xFFFFF000U) << "less than asked for is taken";
}

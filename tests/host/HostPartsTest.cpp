#include "host/HostBlock.h"
#include "host/Protocol.h"
#include "tests/support/Test.h"

namespace {

uint32_t WordAt(const void* block, uint32_t offset) {
  uint32_t word;
  std::memcpy(&word, static_cast<const uint8_t*>(block) + offset, sizeof word);
  return word;
}

}  // namespace

TEST(HostBlock, PointsIntoItself) {
  const HostBlock block;
  const auto start = reinterpret_cast<uint32_t>(block.Address());
  ASSERT_EQ(WordAt(block.Address(), 0), block.Size());
  const uint32_t modes = WordAt(block.Address(), 236) - start;
  for (const uint32_t offset : {172, 184, 188, 196, 224, 264, 308, 316, 324, 336, 360, 384}) {
    const uint32_t target = WordAt(block.Address(), offset) - start;
    EXPECT_TRUE(target >= 388 && target <= modes - 16) << offset;
  }
  EXPECT_EQ(modes + 28 * WordAt(block.Address(), 228), block.Size());
  EXPECT_EQ(ModeText(WordAt(block.Address(), modes)), "AM");
  const uint32_t range = WordAt(block.Address(), 224) - start;
  EXPECT_LT(WordAt(block.Address(), range), WordAt(block.Address(), range + 4));
}

TEST(Protocol, FrequencyTexts) {
  for (const auto& [text, expected] :
       {std::pair("9420.5", 9420500LL), {"0.001", 1}, {" 6005 ", 6005000}, {"21474836.47", 21474836470}}) {
    int64_t hz = 0;
    EXPECT_TRUE(ParseKilohertz(text, hz)) << text;
    EXPECT_EQ(hz, expected) << text;
  }
  int64_t unread = 0;
  for (const char* text : {"", "x", "0", "-5", "12x", "inf", "21474836.48"})
    EXPECT_FALSE(ParseKilohertz(text, unread)) << text;
  EXPECT_EQ(KilohertzText(9420050) + KilohertzText(100), "9420.050.1");
}

#include "plugin/HostInfo.h"

#include "tests/support/Test.h"

namespace {

// A heap block of just these bytes: a sanitizer sees every read behind it.
struct Block {
  explicit Block(uint32_t length) : bytes(length) { Put(0, length); }
  Block& Put(uint32_t offset, uint32_t word) {
    std::memcpy(&bytes[offset], &word, sizeof word);
    return *this;
  }
  Block& PutPointer(uint32_t offset, uint32_t target) {
    return Put(offset, reinterpret_cast<uint32_t>(bytes.data()) + target);
  }
  HostInfo Copy() { return HostInfo::Copy(bytes.data()); }

  std::vector<uint8_t> bytes;
};

uint32_t Word(const HostInfo& info, uint32_t offset) {
  uint32_t word;
  std::memcpy(&word, info.Bytes() + offset, sizeof word);
  return word;
}

}  // namespace

TEST(HostInfo, CopiesTheBlockAndMovesItsPointers) {
  Block block(400);
  for (uint32_t offset = 4; offset < 400; offset += 4) block.Put(offset, offset * 3);
  for (const uint32_t offset : HostInfo::kPointerOffsets) block.PutPointer(offset, offset);
  const HostInfo info = block.Put(172, 0).Copy();
  ASSERT_EQ(info.Size(), 400u);
  for (uint32_t offset = 4; offset < 400; offset += 4) {
    const bool moved = offset != 172 && std::ranges::count(HostInfo::kPointerOffsets, offset) == 1;
    const uint32_t expected = moved ? reinterpret_cast<uint32_t>(info.Bytes()) + offset : offset * 3;
    EXPECT_EQ(Word(info, offset), offset == 172 ? 0 : expected) << offset;
  }
}

TEST(HostInfo, ReadsRangeModesAndReceiver) {
  Block block(560);
  block.PutPointer(224, 400).Put(400, 9).Put(404, 30000).Put(228, 3).PutPointer(236, 476);
  block.Put(476, 1).Put(504, 18).Put(532, 0xFFFFFFFF);
  EXPECT_EQ(block.Copy().FrequencyRangeKhz().value().lowestKhz, 9u);
  EXPECT_EQ(block.Copy().FrequencyRangeKhz().value().highestKhz, 30000u);
  EXPECT_THAT(block.Copy().ModeNumbers(), ElementsAre(1, 18, -1));
  for (const auto& [text, number] :
       {std::pair("03", 3u), {"99", 99u}, {"0 ", 0u}, {"077", 7u}, {"7x", 7u}, {"/7", 3u}, {":7", 3u}, {"", 3u}}) {
    strncpy(reinterpret_cast<char*>(&block.bytes[76]), text, 4);
    EXPECT_EQ(block.Copy().ReceiverDefault(), number) << text;
  }
}

// That nothing outside is read is tested with blocks of every kind, see fuzz/HostInfoBlock.cpp.
TEST(HostInfo, ClampsWhatLiesOutsideTheBlock) {
  const uint32_t kCases[][3] = {{0, 400, 0}, {1, 400, 1}, {5, 400, 2}, {0xFFFFFFFF, 400, 0}, {5, 402, 1}, {1, 429, 0}};
  for (const auto& [told, at, found] : kCases) {
    Block block(400 + 2 * 28);
    block.Put(228, told).PutPointer(236, at);
    EXPECT_EQ(block.Copy().ModeNumbers().size(), found) << told << " at " << at;
  }
  for (const uint32_t target : {392u, 393u, 0u - 8}) {
    EXPECT_EQ(Block(400).PutPointer(224, target).Copy().FrequencyRangeKhz().has_value(), target == 392) << target;
  }
  EXPECT_EQ(Block(76).Copy().ReceiverDefault(), 3u);
  EXPECT_TRUE(HostInfo::Copy(nullptr).IsEmpty());
  for (const uint32_t told : {3u, HostInfo::kLargestSize + 1}) EXPECT_TRUE(Block(4).Put(0, told).Copy().IsEmpty());
}

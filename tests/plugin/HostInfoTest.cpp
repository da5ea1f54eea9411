#include "plugin/HostInfo.h"

#include "tests/support/Test.h"

namespace {

// Bytes that end where readable memory ends: reading one byte too many stops the program.
struct Block {
  explicit Block(uint32_t length) {
    constexpr uint32_t kPage = 4096;
    pages = static_cast<uint8_t*>(VirtualAlloc(nullptr, 2 * kPage, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD before;
    VirtualProtect(pages + kPage, kPage, PAGE_NOACCESS, &before);
    start = pages + kPage - length;
    Put(0, length);
  }
  Block(const Block&) = delete;
  ~Block() { VirtualFree(pages, 0, MEM_RELEASE); }

  Block& Put(uint32_t offset, uint32_t word) {
    std::memcpy(start + offset, &word, sizeof word);
    return *this;
  }
  Block& PutPointer(uint32_t offset, uint32_t target) {
    return Put(offset, reinterpret_cast<uint32_t>(start) + target);
  }

  uint8_t* pages;
  uint8_t* start;
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
  const HostInfo info = HostInfo::Copy(block.Put(172, 0).start);
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
  EXPECT_EQ(HostInfo::Copy(block.start).FrequencyRangeKhz().value().lowestKhz, 9u);
  EXPECT_EQ(HostInfo::Copy(block.start).FrequencyRangeKhz().value().highestKhz, 30000u);
  EXPECT_THAT(HostInfo::Copy(block.start).ModeNumbers(), ElementsAre(1, 18, -1));
  for (const auto& [text, number] :
       {std::pair("03", 3u), {"99", 99u}, {"0 ", 0u}, {"077", 7u}, {"7x", 7u}, {"/7", 3u}, {":7", 3u}, {"", 3u}}) {
    strncpy(reinterpret_cast<char*>(block.start + 76), text, 4);
    EXPECT_EQ(HostInfo::Copy(block.start).ReceiverDefault(), number) << text;
  }
}

TEST(HostInfo, ClampsWhatLiesOutsideTheBlock) {
  const uint32_t kCases[][3] = {{0, 400, 0}, {1, 400, 1}, {5, 400, 2}, {0x7FFFFFFF, 400, 2}, {0xFFFFFFFF, 400, 0},
                                {5, 402, 1}, {1, 428, 1}, {1, 429, 0}, {1, 457, 0},          {1, 0u - 28, 0}};
  for (const auto& [told, at, found] : kCases) {
    Block block(400 + 2 * 28);
    block.Put(228, told).PutPointer(236, at);
    EXPECT_EQ(HostInfo::Copy(block.start).ModeNumbers().size(), found) << told << " at " << at;
  }
  for (const uint32_t target : {392u, 393u, 400u, 0u - 8, 0x40000000u}) {
    Block block(400);
    block.PutPointer(224, target);
    EXPECT_EQ(HostInfo::Copy(block.start).FrequencyRangeKhz().has_value(), target == 392) << target;
  }
}

TEST(HostInfo, CutBlocksAreCopiedAsFarAsTheyGo) {
  for (const uint32_t length : {4u, 76u, 77u, 78u, 175u, 227u, 239u, 387u}) {
    Block block(length);
    std::memset(block.start + 4, 0x31, length - 4);
    const HostInfo info = HostInfo::Copy(block.start);
    ASSERT_EQ(info.Size(), length);
    EXPECT_FALSE(info.FrequencyRangeKhz().has_value()) << length;
    EXPECT_TRUE(info.ModeNumbers().empty()) << length;
    EXPECT_EQ(info.ReceiverDefault(), length < 77 ? 3u : length == 77 ? 1u : 11u) << length;
  }
  EXPECT_TRUE(HostInfo::Copy(nullptr).IsEmpty());
  for (const uint32_t told : {0u, 3u, HostInfo::kLargestSize + 1, 0xFFFFFFFFu}) {
    EXPECT_TRUE(HostInfo::Copy(Block(4).Put(0, told).start).IsEmpty()) << told;
  }
}

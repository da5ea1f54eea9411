#include "plugin/HostInfo.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <cstring>
#include <limits>

using testing::ElementsAre;

namespace {

// Bytes that end where readable memory ends: reading one byte too many stops the program.
class Block {
 public:
  explicit Block(uint32_t length) {
    constexpr uint32_t kPage = 4096;
    pages_ = static_cast<uint8_t*>(VirtualAlloc(nullptr, 2 * kPage, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD before;
    VirtualProtect(pages_ + kPage, kPage, PAGE_NOACCESS, &before);
    start_ = pages_ + kPage - length;
    Put(0, length);
  }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;
  ~Block() { VirtualFree(pages_, 0, MEM_RELEASE); }

  Block& Put(uint32_t offset, uint32_t word) {
    std::memcpy(start_ + offset, &word, sizeof word);
    return *this;
  }
  Block& PutPointer(uint32_t offset, uint32_t target) { return Put(offset, Address() + target); }
  Block& PutText(uint32_t offset, const char* text) {
    std::memcpy(start_ + offset, text, std::strlen(text));
    return *this;
  }
  [[nodiscard]] const uint8_t* Start() const { return start_; }
  [[nodiscard]] uint32_t Address() const { return reinterpret_cast<uint32_t>(start_); }

 private:
  uint8_t* pages_;
  uint8_t* start_;
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
  block.Put(172, 0);
  const HostInfo info = HostInfo::Copy(block.Start());
  ASSERT_EQ(info.Size(), 400u);
  EXPECT_EQ(Word(info, 172), 0u);
  EXPECT_EQ(Word(info, 168), 168u * 3);
  EXPECT_EQ(Word(info, 396), 396u * 3);
  for (const uint32_t offset : HostInfo::kPointerOffsets) {
    if (offset == 172) continue;
    EXPECT_EQ(Word(info, offset), reinterpret_cast<uint32_t>(info.Bytes()) + offset) << offset;
  }
}

TEST(HostInfo, ReadsRangeModesAndReceiver) {
  Block block(560);
  block.PutText(76, "07").PutPointer(224, 400).Put(400, 9).Put(404, 30000).Put(228, 3).PutPointer(236, 476);
  block.Put(476, 1).Put(504, 18).Put(532, 0xFFFFFFFF);
  const HostInfo info = HostInfo::Copy(block.Start());
  ASSERT_TRUE(info.FrequencyRangeKhz().has_value());
  EXPECT_EQ(info.FrequencyRangeKhz()->lowestKhz, 9u);
  EXPECT_EQ(info.FrequencyRangeKhz()->highestKhz, 30000u);
  EXPECT_THAT(info.ModeNumbers(), ElementsAre(1, 18, -1));
  EXPECT_EQ(info.ReceiverDefault(), 7u);
}

TEST(HostInfo, ClampsTheModeListToTheBlock) {
  struct {
    uint32_t told, at;
    size_t found;
  } const kCases[] = {
      {0, 400, 0},          {1, 400, 1},     {5, 400, 2}, {0x7FFFFFFF, 400, 2}, {0xFFFFFFFF, 400, 0},
      {0x80000000, 400, 0}, {5, 400 + 2, 1}, {1, 428, 1}, {1, 429, 0},          {1, 456, 0},
      {1, 457, 0},          {1, 0u - 28, 0}, {1, 0, 1},
  };
  for (const auto& row : kCases) {
    Block block(400 + 2 * 28);
    block.Put(228, row.told).PutPointer(236, row.at);
    EXPECT_EQ(HostInfo::Copy(block.Start()).ModeNumbers().size(), row.found) << row.told << " at " << row.at;
  }
}

TEST(HostInfo, RangeOutsideTheBlockIsNoRange) {
  struct {
    uint32_t target;
    bool present;
  } const kCases[] = {{392, true}, {393, false}, {400, false}, {0u - 8, false}, {0x40000000, false}, {0, true}};
  for (const auto& row : kCases) {
    Block block(400);
    block.PutPointer(224, row.target);
    EXPECT_EQ(HostInfo::Copy(block.Start()).FrequencyRangeKhz().has_value(), row.present) << row.target;
  }
  Block block(400);
  block.Put(224, 0);
  EXPECT_FALSE(HostInfo::Copy(block.Start()).FrequencyRangeKhz().has_value());
}

TEST(HostInfo, CutBlocksAreCopiedAsFarAsTheyGo) {
  for (const uint32_t length : {4u, 5u, 76u, 78u, 175u, 176u, 227u, 228u, 239u, 240u, 387u}) {
    Block block(length);
    std::memset(const_cast<uint8_t*>(block.Start()) + 4, 0x31, length - 4);
    const HostInfo info = HostInfo::Copy(block.Start());
    ASSERT_EQ(info.Size(), length);
    EXPECT_FALSE(info.FrequencyRangeKhz().has_value()) << length;
    EXPECT_TRUE(info.ModeNumbers().empty()) << length;
    EXPECT_EQ(info.ReceiverDefault(), length < 77 ? 3u : 11u) << length;
    const bool endsInPointer = length == 176 || length == 228 || length == 240;
    if (length > 4 && !endsInPointer) {
      EXPECT_EQ(info.Bytes()[length - 1], 0x31) << length;
    }
  }
}

TEST(HostInfo, SenselessBlocksGiveAnEmptyCopy) {
  EXPECT_TRUE(HostInfo::Copy(nullptr).IsEmpty());
  for (const uint32_t told : {0u, 3u, HostInfo::kLargestSize + 1, std::numeric_limits<uint32_t>::max()}) {
    Block block(4);
    block.Put(0, told);
    const HostInfo info = HostInfo::Copy(block.Start());
    EXPECT_TRUE(info.IsEmpty()) << told;
    EXPECT_EQ(info.ReceiverDefault(), 3u);
    EXPECT_FALSE(info.FrequencyRangeKhz().has_value());
    EXPECT_TRUE(info.ModeNumbers().empty());
  }
}

TEST(HostInfo, ReceiverDigits) {
  struct {
    const char* text;
    uint32_t number;
  } const kCases[] = {{"03", 3}, {"12", 12}, {"99", 99}, {"7x", 7}, {"x7", 3}, {"0 ", 0}, {"/:", 3}, {"", 3}};
  for (const auto& row : kCases) {
    Block block(128);
    EXPECT_EQ(HostInfo::Copy(block.PutText(76, row.text).Start()).ReceiverDefault(), row.number) << row.text;
  }
  Block cut(77);
  EXPECT_EQ(HostInfo::Copy(cut.PutText(76, "8").Start()).ReceiverDefault(), 8u);
}

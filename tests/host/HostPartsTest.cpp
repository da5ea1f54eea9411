#include "host/AudioSource.h"
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

TEST(AudioSource, BlocksAddUpToASecondAndBothFormsCarryTheSameTone) {
  for (const uint32_t rate : {8000u, 11025u, 44100u, 48001u}) {
    AudioSource source;
    ASSERT_TRUE(source.SetFormat({AudioKind::kNoise, rate, 2, false}));
    uint32_t count = 0;
    for (uint32_t i = 0; i < AudioSource::kBlocksPerSecond; ++i) count += source.NextBlock()->sampleCount;
    EXPECT_EQ(count, rate * 2);
  }
  AudioSource integers, floats;
  EXPECT_FALSE(integers.SetFormat({AudioKind::kTone, 0, 1, false}));
  EXPECT_FALSE(integers.SetFormat({AudioKind::kTone, 8000, 0, false}));
  ASSERT_TRUE(integers.SetFormat({AudioKind::kTone, 48000, 1, false}));
  ASSERT_TRUE(floats.SetFormat({AudioKind::kTone, 48000, 1, true}));
  EXPECT_EQ(integers.SubCode(), 3u);
  EXPECT_EQ(floats.SubCode(), 8u);
  const auto* integer = reinterpret_cast<const int16_t*>(integers.NextBlock() + 1);
  const auto* real = reinterpret_cast<const float*>(floats.NextBlock() + 1);
  for (int i = 0; i < 960; ++i) EXPECT_NEAR(integer[i], real[i] * 32767, 1) << i;
  EXPECT_NEAR(*std::max_element(real, real + 960), 0.5, 0.01);
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

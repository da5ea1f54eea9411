// Blocks that a host may hand over, and what floats become.
#include "scheduler/AudioBlock.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(AudioBlock, FloatsAreTruncatedAndKeepTheirLowBits) {
  const struct {
    float value;
    int sample;
  } kCases[] = {{0.5F, 16383}, {-0.5F, -16383}, {1, 32767},  {-1, -32767}, {0.00003F, 0}, {1.0001F, -32766},
                {2, -2},       {-4, 4},         {65538, -2}, {65539, 0},   {NAN, 0},      {-INFINITY, 0}};
  for (const auto& [value, sample] : kCases) EXPECT_EQ(SampleOfFloat(value), sample) << value;
}

TEST(AudioBlock, OnlyBlocksWithAFormatAndATrueSizeAreUsable) {
  constexpr uint32_t kMost = AudioBlock::kMostBytes / 2, kHuge = 0xFFFFFFFF;
  const struct {
    uint32_t rate, channels, count;
    bool isUsable;
  } kCases[] = {
      {48000, 1, kMost, true}, {48000, 1, kMost + 1, false}, {48000, kHuge, kHuge, false}, {48000, 2, 1u << 31, false},
      {0, 1, 10, false},       {48000, 0, 10, false},        {48000, 0x10000, 1, false},   {1, 1, 0, true}};
  for (const auto& [rate, channels, count, isUsable] : kCases) {
    const uint32_t header[4] = {rate, 0xDEADBEEF, channels, count};
    EXPECT_EQ(AudioBlock(header).IsUsable(), isUsable) << channels << " x " << count;
  }
  EXPECT_FALSE(AudioBlock(nullptr).IsUsable());
}

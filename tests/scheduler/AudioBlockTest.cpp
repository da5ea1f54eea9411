#include "scheduler/AudioBlock.h"

#include "tests/support/Test.h"

TEST(AudioBlock, FloatsAreTruncatedAndKeepTheirLowBits) {
  const float kValues[] = {0.5F, -0.5F, 1, -1, 0.00003F, 1.0001F, 2, -4, 65538, 65539, NAN, -INFINITY};
  const int16_t kSamples[] = {16383, -16383, 32767, -32767, 0, -32766, -2, 4, -2, 0, 0, 0};
  for (size_t i = 0; i < std::size(kValues); ++i) EXPECT_EQ(SampleOfFloat(kValues[i]), kSamples[i]) << kValues[i];
}

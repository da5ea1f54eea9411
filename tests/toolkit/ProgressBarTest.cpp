#include "toolkit/ProgressBar.h"

#include "tests/toolkit/ControlFixture.h"

using ProgressBarTest = ControlFixture;

TEST_F(ProgressBarTest, FillsByItsNumbersHoweverLargeOrShowsAQuarterOfUnknownWork) {
  auto* bar = new ProgressBar(*window_);  // belongs to its window
  bar->SetBounds(0, 0, 200, 8);
  constexpr uint32_t kCases[][3] = {
      {0, 0, 50}, {0xFFFFFFFC, 0x3FFFFFFF, 50}, {0xFFFFFFFC, 0xFFFFFFFE, 200}, {4, 2, 100}};
  for (const auto& [range, position, filled] : kCases) {
    bar->SetRange(range);
    bar->SetPosition(position);
    EXPECT_EQ(Colors(*bar, {0, 4, 200, 5})[TmyApplication::Get().Theme().Color().accent], filled) << range;
  }
}

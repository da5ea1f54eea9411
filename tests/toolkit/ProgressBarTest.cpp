#include "toolkit/ProgressBar.h"

#include "tests/toolkit/ControlFixture.h"

using ProgressBarTest = ControlFixture;

TEST_F(ProgressBarTest, RunsWhileItIsSeenAndTheWorkUnknownElseFills) {
  auto* bar = new ProgressBar(*window_);  // belongs to its window
  bar->SetBounds(0, 0, 200, 8);
  const auto filled = [&] { return Colors(*bar, {0, 4, 200, 5})[TmyApplication::Get().Theme().Color().accent]; };
  const auto runs = [&] { return KillTimer(bar->Handle(), 1) != FALSE; };  // and stops it
  EXPECT_EQ(filled(), 50);
  for (const uint32_t quarters : {0u, 1u, 2u, 4u}) {
    bar->SetRange(0xFFFFFFFC);
    bar->SetPosition(quarters * 0x3FFFFFFF);
    EXPECT_EQ(filled(), quarters * 50);
    bar->SetRange(0);
    EXPECT_TRUE(runs());
  }
}

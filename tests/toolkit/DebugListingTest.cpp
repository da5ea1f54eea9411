#include "toolkit/DebugListing.h"

#include "foundation/Trace.h"
#include "tests/toolkit/ControlFixture.h"
#include "toolkit/Tmy_Btn.h"
#include "toolkit/Tmy_Label.h"

class DebugListingTest : public ControlFixture {};

TEST_F(DebugListingTest, WritesALineForEachWithItsKind) {
  Tmy_Btn button(*window_, "Go");
  Tmy_Label label(*window_, "text");
  DebugListing listing;
  listing.Add(button);
  listing.Add(*window_);
  listing.Add(label);
  listing.Remove(button);
  ASSERT_EQ(listing.Count(), 2u);
  EXPECT_EQ(listing.LineOf(0),
            Formatted("   0: [%8u]\t<    Window:%p-%6lx>\tInput", window_->Stamp(),
                      static_cast<void*>(static_cast<TmyControl*>(window_)), HandleToUlong(window_->Handle())));
  EXPECT_EQ(listing.LineOf(1), Formatted("   1: [%8u]\t<    _Label:%p>\ttext", label.Stamp(),
                                         static_cast<void*>(static_cast<TmyControl*>(&label))));
}

TEST(TraceBuffer, KeepsTheLastLines) {
  std::string buffer(16, 'x');
  Trace::SetBuffer(buffer.data(), 15);
  Trace::SwitchOn(true);
  for (const char* line : {"first", "second", "this does not fit", "3rd"}) Trace::Line("%s", line);
  Trace::SwitchOn(false);
  Trace::Line("%s", "off");
  Trace::SetBuffer(nullptr, 0);
  EXPECT_STREQ(buffer.data(), "3rd\n");
  EXPECT_STREQ(buffer.data() + 6, "second\n");
  EXPECT_EQ(buffer[15], 'x');
}

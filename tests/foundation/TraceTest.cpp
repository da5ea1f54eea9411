#include "foundation/Trace.h"

#include "tests/support/Test.h"

TEST(Trace, ABufferKeepsTheLastLines) {
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

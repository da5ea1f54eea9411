#include "foundation/Trace.h"

#include "tests/support/Test.h"

TEST(Trace, ABufferKeepsTheLastLines) {
  std::string buffer(16, 'x');
  Trace::SetBuffer(buffer.data(), 15);
  Trace::SwitchOn(true);
  for (const char* line : {"first", "secondly", "this does not fit", "3rd"}) Trace::Line("%s", line);
  Trace::SwitchOn(false);
  Trace::SetBuffer(nullptr, 0);
  EXPECT_EQ(buffer, std::string("secondly\n3rd\n\0xx", 16)) << "from the start again, when the end has no room";
}

#include "host/Protocol.h"

#include "tests/support/Test.h"

TEST(Protocol, FrequencyTexts) {
  int64_t hz = 0;
  for (const auto& [text, expected] :
       {std::pair("9420.5", 9420500LL), {" 6005 ", 6005000}, {"21474836.47", 21474836470}})
    EXPECT_TRUE(ParseKilohertz(text, hz) && hz == expected) << text;
  for (const char* text : {"", "x", "0", "-5", "12x", "inf", "21474836.48"}) EXPECT_FALSE(ParseKilohertz(text, hz));
}

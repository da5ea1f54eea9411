#include "foundation/TmyObject.h"

#include <gtest/gtest.h>

namespace {

TEST(TmyObject, TakesTheSharedStamp) {
  TmyObject::SetSharedStamp(5);
  TmyObject first;
  TmyObject::SetSharedStamp(6);
  const TmyObject second;
  first.SetTag(9);
  EXPECT_EQ(first.Stamp(), 5U);
  EXPECT_EQ(second.Stamp(), 6U);
  EXPECT_EQ(first.Tag(), 9U);
  EXPECT_EQ(second.Tag(), 0U);
}

}  // namespace

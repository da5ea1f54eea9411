#include "foundation/TmyRegistry.h"

#include "tests/support/FreshRegistry.h"
#include "tests/support/Test.h"

// Which types and sizes are read as what is tested with the stored settings.
TEST(TmyRegistry, ValuesEndWhereTheyEndOrTheBufferDoes) {
  const FreshRegistry registry;
  TmyRegistry key;
  ASSERT_FALSE(key.Open(HKEY_CURRENT_USER, "k", KEY_ALL_ACCESS) || key.WriteDword("a", 1));
  ASSERT_TRUE(key.Open(HKEY_CURRENT_USER, "k", KEY_ALL_ACCESS, true));
  EXPECT_TRUE(key.WriteString("empty", "") && key.WriteBinary("bytes", "abcdef", 6));
  for (const auto& [size, expected] : {std::pair(0U, "........"), {3U, "abc....."}, {8U, "abcdef.."}}) {
    char buffer[] = "........";
    EXPECT_EQ(key.ReadBinary("bytes", buffer, size), std::string(expected).find('.'));
    EXPECT_STREQ(buffer, expected);
  }
  RegSetKeyValueA(HKEY_CURRENT_USER, "k", "open", REG_SZ, "abc", 3);
  RegSetKeyValueA(HKEY_CURRENT_USER, "k", "zero", REG_SZ, "a\0bc", 5);
  EXPECT_EQ(key.ReadString("open", "x") + key.ReadString("zero", "x") + key.ReadString("empty", "x"), "abca");
  key.Close();
  EXPECT_EQ(key.ReadString("open", "x"), "x");
}

#include "foundation/TmyRegistry.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

class TmyRegistryTest : public testing::Test {
 protected:
  ~TmyRegistryTest() override { RegDeleteKeyA(HKEY_CURRENT_USER, name_.c_str()); }
  void SetUp() override {
    ASSERT_FALSE(key_.Open(HKEY_CURRENT_USER, name_.c_str(), KEY_ALL_ACCESS));
    ASSERT_FALSE(key_.WriteDword("a", 1));
    ASSERT_TRUE(key_.Open(HKEY_CURRENT_USER, name_.c_str(), KEY_ALL_ACCESS, true));
    EXPECT_TRUE(key_.WriteDword("number", 0xFFFFFFFE));
    EXPECT_TRUE(key_.WriteString("text", "C:\\x"));
    EXPECT_TRUE(key_.WriteString("empty", ""));
    EXPECT_TRUE(key_.WriteBinary("bytes", "abcdef", 6));
  }

  const std::string name_ = "Software\\Marlux3Test-" + std::to_string(GetCurrentProcessId());
  TmyRegistry key_;
};

TEST_F(TmyRegistryTest, OtherTypesAndAbsentValuesTakeTheDefault) {
  ASSERT_TRUE(key_.Open(HKEY_CURRENT_USER, name_.c_str(), KEY_ALL_ACCESS));
  for (const auto& [name, number] : {std::pair("number", 0xFFFFFFFEU), {"bytes", 7}, {"text", 7}, {"missing", 7}})
    EXPECT_EQ(key_.ReadDword(name, 7), number) << name;
  for (const auto& [name, text] : {std::pair("text", "C:\\x"), {"empty", ""}, {"number", "x"}, {"missing", "x"}})
    EXPECT_EQ(key_.ReadString(name, "x"), text) << name;
  EXPECT_TRUE(key_.DeleteValue("number"));
  EXPECT_FALSE(key_.Exists("number"));
  key_.Close();
  EXPECT_EQ(key_.ReadString("text", "x"), "x");
}

TEST_F(TmyRegistryTest, ValuesEndWhereTheyEndOrTheBufferDoes) {
  for (const auto& [size, expected] : {std::pair(0U, "........"), {3U, "abc....."}, {8U, "abcdef.."}}) {
    char buffer[] = "........";
    EXPECT_EQ(key_.ReadBinary("bytes", buffer, size), std::string(expected).find('.'));
    EXPECT_STREQ(buffer, expected);
  }
  RegSetKeyValueA(HKEY_CURRENT_USER, name_.c_str(), "open", REG_SZ, "abc", 3);
  RegSetKeyValueA(HKEY_CURRENT_USER, name_.c_str(), "zero", REG_SZ, "a\0bc", 5);
  EXPECT_EQ(key_.ReadString("open", "x"), "abc");
  EXPECT_EQ(key_.ReadString("zero", "x"), "a");
}

}  // namespace

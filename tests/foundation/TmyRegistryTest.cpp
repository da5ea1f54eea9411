#include "foundation/TmyRegistry.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class TmyRegistryTest : public testing::Test {
 protected:
  TmyRegistryTest() : name_("Software\\Marlux3Test-" + std::to_string(GetCurrentProcessId())) {}
  ~TmyRegistryTest() override {
    key_.Close();
    RegDeleteKeyA(HKEY_CURRENT_USER, name_.c_str());
  }
  void SetUp() override {
    ASSERT_FALSE(key_.Open(HKEY_CURRENT_USER, name_.c_str(), KEY_ALL_ACCESS));
    ASSERT_FALSE(key_.WriteDword("a", 1));
    ASSERT_TRUE(key_.Open(HKEY_CURRENT_USER, name_.c_str(), KEY_ALL_ACCESS, true));
  }

  std::string name_;
  TmyRegistry key_;
};

TEST_F(TmyRegistryTest, WhatIsWrittenIsRead) {
  EXPECT_TRUE(key_.WriteDword("number", 0xFFFFFFFE));
  EXPECT_TRUE(key_.WriteString("text", "C:\\Recordings"));
  EXPECT_TRUE(key_.WriteString("empty", ""));
  EXPECT_TRUE(key_.Open(HKEY_CURRENT_USER, name_.c_str(), KEY_ALL_ACCESS));
  EXPECT_EQ(key_.ReadDword("number", 7), 0xFFFFFFFEU);
  EXPECT_EQ(key_.ReadString("text", "x"), "C:\\Recordings");
  EXPECT_EQ(key_.ReadString("empty", "x"), "");
  EXPECT_TRUE(key_.Exists("number"));
  EXPECT_TRUE(key_.DeleteValue("number"));
  EXPECT_FALSE(key_.DeleteValue("number"));
  EXPECT_FALSE(key_.Exists("number"));
}

TEST_F(TmyRegistryTest, OtherTypesAndAbsentValuesTakeTheDefault) {
  ASSERT_TRUE(key_.WriteBinary("bytes", "abcd", 4));
  ASSERT_TRUE(key_.WriteDword("number", 5));
  ASSERT_TRUE(key_.WriteString("text", "abcd"));
  EXPECT_EQ(key_.ReadDword("bytes", 7), 7U);
  EXPECT_EQ(key_.ReadDword("text", 7), 7U);
  EXPECT_EQ(key_.ReadDword("missing", 7), 7U);
  EXPECT_EQ(key_.ReadString("number", "x"), "x");
  EXPECT_EQ(key_.ReadString("missing", "x"), "x");
  key_.Close();
  EXPECT_EQ(key_.ReadDword("number", 7), 7U);
  EXPECT_FALSE(key_.Exists("number"));
}

TEST_F(TmyRegistryTest, BinaryValuesFillWhatBothHaveRoomFor) {
  ASSERT_TRUE(key_.WriteBinary("bytes", "abcdef", 6));
  const struct {
    uint32_t size;
    uint32_t filled;
    const char* expected;
  } kCases[] = {{0, 0, "........"}, {3, 3, "abc....."}, {6, 6, "abcdef.."}, {8, 6, "abcdef.."}};
  for (const auto& row : kCases) {
    char buffer[] = "........";
    EXPECT_EQ(key_.ReadBinary("bytes", buffer, row.size), row.filled);
    EXPECT_STREQ(buffer, row.expected);
  }
  EXPECT_EQ(key_.ReadBinary("missing", nullptr, 0), 0U);
}

TEST_F(TmyRegistryTest, TextsEndAtTheFirstZeroOrTheEndOfTheValue) {
  HKEY raw;
  ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, name_.c_str(), 0, KEY_ALL_ACCESS, &raw), ERROR_SUCCESS);
  RegSetValueExA(raw, "open", 0, REG_SZ, reinterpret_cast<const BYTE*>("abc"), 3);
  RegSetValueExA(raw, "zero", 0, REG_SZ, reinterpret_cast<const BYTE*>("a\0bc"), 5);
  RegCloseKey(raw);
  EXPECT_EQ(key_.ReadString("open", "x"), "abc");
  EXPECT_EQ(key_.ReadString("zero", "x"), "a");
}

}  // namespace

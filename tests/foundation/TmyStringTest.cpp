#include "foundation/TmyString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>

namespace {

TEST(TmyString, CapacityDependsOnHowAStringWasMade) {
  const TmyString five("abcde");
  const struct {
    const char* made;
    TmyString text;
    std::string_view expected;
    uint32_t capacity;
  } kCases[] = {
      {"nothing", TmyString(), "", 1},
      {"null", TmyString(static_cast<const char*>(nullptr)), "", 1},
      {"null and a count", TmyString(nullptr, 7), "", 1},
      {"text", "abc", "abc", 4},
      {"bytes with a zero", TmyString("a\0b", 3), std::string_view("a\0b", 3), 4},
      {"little room", TmyString::WithRoom(3), "", 17},
      {"much room", TmyString::WithRoom(100), "", 101},
      {"short sum", five + five, "abcdeabcde", 17},
      {"sum of 16", five + "12345678901", "abcde12345678901", 18},
      {"text and string of 16", "12345678901" + five, "12345678901abcde", 17},
      {"null and string", static_cast<const char*>(nullptr) + five, "abcde", 17},
      {"few of one", TmyString::Repeat('-', 3), "---", 17},
      {"16 of one", TmyString::Repeat('-', 16), "----------------", 18},
      {"decimal", TmyString::FromDecimal(-7), "-7", 33},
      {"wide decimal", TmyString::FromDecimal(7, 0, 40), "                                       7", 41},
      {"hexadecimal", TmyString::FromHex(0), "0", 18},
      {"no ending", TmyString("a").FileExt(), "", 17},
      {"empty ending", TmyString("a.").FileExt(), "", 17},
      {"formatted", Formatted("%s-%lld", "a", -5000000000LL), "a--5000000000", 14},
  };
  for (const auto& row : kCases) {
    EXPECT_EQ(row.text.View(), row.expected) << row.made;
    EXPECT_EQ(row.text.Capacity(), row.capacity) << row.made;
    EXPECT_EQ(row.text.Chars()[row.text.Length()], 0) << row.made;
  }
}

TEST(TmyString, NumbersBecomeTexts) {
  EXPECT_EQ(TmyString::FromDecimal(INT64_MIN), "-9223372036854775808");
  EXPECT_EQ(TmyString::FromDecimal(-7, 3, 6), "  -007");
  EXPECT_EQ(TmyString::FromDecimal(1234, 3, 2), "1234");
  EXPECT_EQ(TmyString::FromHex(UINT64_MAX), "ffffffffffffffff");
  EXPECT_EQ(TmyString::FromHex(0x10), "10");
  EXPECT_EQ(TmyString::FromHex(0xAB, 20), "000000000000000000ab");
}

TEST(TmyString, TextsBecomeNumbers) {
  const struct {
    const char* text;
    bool hexadecimal;
    long expected;
  } kCases[] = {{"", false, 0},
                {"abc", false, 0},
                {" -12x", false, -12},
                {"0x1F", false, 0},
                {"0x1F", true, 31},
                {"ffffffff", true, -1},
                {"99999999999", false, 2147483647},
                {"-", false, 0}};
  for (const auto& row : kCases) EXPECT_EQ(TmyString(row.text).ToLong(row.hexadecimal), row.expected) << row.text;
}

TEST(TmyString, ChangingACopyLeavesTheOthers) {
  void (*const kChanges[])(TmyString&) = {[](TmyString& s) { s += "x"; },
                                          [](TmyString& s) { s += 'x'; },
                                          [](TmyString& s) { s += s; },
                                          [](TmyString& s) { s.RemoveLeft(1); },
                                          [](TmyString& s) { s.RemoveRight(1); },
                                          [](TmyString& s) { s.Trim(); },
                                          [](TmyString& s) { *s.WritableAt(1) = '!'; },
                                          [](TmyString& s) { s.Format("%d", 5); },
                                          [](TmyString& s) { s.SetTag(9); }};
  int number = 0;
  for (const auto& change : kChanges) {
    const TmyString original(" eibi");
    TmyString copy = original;
    EXPECT_EQ(copy.Chars(), original.Chars());
    change(copy);
    EXPECT_NE(copy.Chars(), original.Chars()) << number;
    EXPECT_EQ(original, " eibi") << number;
    EXPECT_EQ(original.Tag(), 0U) << number;
    EXPECT_EQ(original.Capacity(), 6U) << number;
    ++number;
  }
}

TEST(TmyString, TheLastHolderNeedsNoCopy) {
  TmyString text("eibi");
  const char* const characters = text.Chars();
  {
    TmyString changed = text;
    const TmyString dropped = text;
    TmyString moved(std::move(changed));
    moved += "x";
  }
  EXPECT_EQ(text.WritableAt(0), characters);
}

TEST(TmyString, RoomIsMadeForWhatIsAskedAndNoMore) {
  TmyString text = TmyString::WithRoom(100);
  text += 'a';
  EXPECT_EQ(text.Capacity(), 2U);  // the terminator alone fell short, so the block is made to measure
  text += "bcd";
  EXPECT_EQ(text.Capacity(), 5U);
  text.RemoveRight(2);
  EXPECT_EQ(text.Capacity(), 5U);
  TmyString shared = text;
  shared.RemoveLeft(9);
  EXPECT_EQ(shared.Capacity(), 3U);
  EXPECT_EQ(text, "ab");
  shared.SetTag(7);
  const TmyString tagged = shared;
  shared += "x";
  EXPECT_EQ(shared.Tag(), 7U);
  EXPECT_EQ(tagged.Tag(), 7U);
}

TEST(TmyString, WritableAccessStaysInsideTheBlock) {
  TmyString text = TmyString::WithRoom(20);
  const TmyString other = text;
  *text.WritableAt(20) = 'z';
  EXPECT_EQ(text.Capacity(), 21U);
  for (uint32_t index = 0; index < 21; ++index) *text.WritableAt(index) = 'z';
  EXPECT_EQ(std::strlen(text.Chars()), 21U);  // still terminated, behind the last byte of the capacity
  EXPECT_NE(text.Chars(), other.Chars());
  for (const uint32_t index : {21U, 1000U, 0xFFFFFFFFU}) *text.WritableAt(index) = 'y';
  EXPECT_EQ(*text.WritableAt(21), 0);
  TmyString empty;
  *empty.WritableAt(0) = 'q';
  EXPECT_STREQ(TmyString().Chars(), "");
}

TEST(TmyString, AppendsAndFormatsItsOwnCharacters) {
  TmyString text("abc");
  text += text;
  text.Append(text.View().substr(4));
  EXPECT_EQ(text, "abcabcbc");
  text.Format("%s/%s", text.Chars(), text.Chars() + 6);
  EXPECT_EQ(text, "abcabcbc/bc");
  text = text;
  TmyString moved = std::move(text);
  EXPECT_EQ(moved, "abcabcbc/bc");
}

TEST(TmyString, ShortOfMemoryKeepsTheText) {
  EXPECT_TRUE(TmyString::Repeat('x', 0xFFFFFFFF).IsEmpty());
  EXPECT_TRUE(TmyString::WithRoom(0xFFFFFFFF).IsEmpty());
  EXPECT_TRUE(TmyString::FromDecimal(1, 0xFFFFFFFF, 0xFFFFFFFF).IsEmpty());
  EXPECT_TRUE(TmyString::FromHex(1, 0xFFFFFFFF).IsEmpty());
  // More than the address space has in one piece; what lies behind the text is never looked at.
  TmyString text("abc");
  for (const size_t size : {0x7FFFFE00U, 0x7FFFFFFFU, 0xFFFFFFFFU}) text.Append(std::string_view(text.Chars(), size));
  EXPECT_EQ(text, "abc");
  EXPECT_EQ(text.Capacity(), 4U);
}

TEST(TmyString, Parts) {
  const struct {
    uint32_t start;
    uint32_t count;
    const char* expected;
  } kCases[] = {{0, 2, "ab"}, {2, 0xFFFFFFFF, "cd"}, {4, 1, ""}, {0xFFFFFFFF, 0xFFFFFFFF, ""}, {3, 0, ""}};
  for (const auto& row : kCases) EXPECT_EQ(TmyString("abcd").Mid(row.start, row.count), row.expected) << row.start;
}

TEST(TmyString, TrimTakesHighBytesToo) {
  const struct {
    const char* text;
    const char* expected;
  } kCases[] = {{"", ""},           {" \t\x01", ""},
                {"\xE9t\xE9", "t"}, {" a b\r\n", "a b"},
                {"a", "a"},         {"\x80\xFF a\x80z\xFF", "a\x80z"},
                {"\x7F!", "\x7F!"}};
  for (const auto& row : kCases) {
    TmyString text(row.text);
    text.Trim();
    EXPECT_EQ(text, row.expected) << row.text;
  }
}

TEST(TmyString, Searching) {
  const TmyString text("Radio radio");
  const struct {
    int32_t found;
    int32_t expected;
  } kCases[] = {{text.Find("radio"), 6},
                {text.Find("Radio", 1), -1},
                {text.Find("", 11), 11},
                {text.Find("", 12), -1},
                {text.Find("x", 0xFFFFFFFF), -1},
                {TmyString().Find("a"), -1},
                {text.Find(nullptr), 0},
                {text.FindNoCase("RADIO", 1), 6},
                {text.FindNoCase("radios"), -1},
                {text.FindNoCase("", 12), -1},
                {text.FindNoCase("o", 0xFFFFFFFF), -1},
                {text.FindChar('o'), 4},
                {text.FindChar('o', 5), 10},
                {text.FindChar('o', 11), -1},
                {text.FindChar('\0'), -1}};
  int number = 0;
  for (const auto& row : kCases) EXPECT_EQ(row.found, row.expected) << number++;
}

TEST(TmyString, ComparesUnsignedBytes) {
  const struct {
    TmyString left;
    TmyString right;
    int expected;
  } kCases[] = {{"", "", 0},
                {"", "a", -1},
                {"ab", "a", 1},
                {"a", "B", 1},
                {"\x80", "z", 1},
                {"abc", "abd", -1},
                {TmyString("a\0b", 3), TmyString("a\0c", 3), -1}};
  for (const auto& row : kCases) {
    EXPECT_EQ(row.left.Compare(row.right), row.expected) << row.left.Chars();
    EXPECT_EQ(row.left == row.right, row.expected == 0) << row.left.Chars();
    EXPECT_EQ(row.left > row.right, row.expected > 0) << row.left.Chars();
  }
}

TEST(TmyString, PathParts) {
  const struct {
    const char* text;
    const char* path;
    const char* name;
    const char* ext;
    const char* without;
  } kCases[] = {{"", "", "", "", ""},
                {"a.txt", "", "a.txt", "txt", "a"},
                {"C:\\x\\a.b.c", "C:\\x", "a.b.c", "c", "C:\\x\\a.b"},
                {"C:\\x.y\\a", "C:\\x.y", "a", "y\\a", "C:\\x.y\\a"},
                {"a.", "", "a.", "", "a"},
                {"x\\", "x", "", "", "x\\"}};
  for (const auto& row : kCases) {
    const TmyString text(row.text);
    EXPECT_EQ(text.FilePath(), row.path) << row.text;
    EXPECT_EQ(text.FileName(), row.name) << row.text;
    EXPECT_EQ(text.FileExt(), row.ext) << row.text;
    EXPECT_EQ(text.RemoveExt(), row.without) << row.text;
  }
}

TEST(TmyString, DerivedTexts) {
  EXPECT_EQ(TmyString("AbZ\xC9[").Lower(), "abz\xC9[");
  EXPECT_EQ(TmyString("abZ\xE9{").Upper(), "ABZ\xE9{");
  EXPECT_EQ(TmyString("a\"b").Quote('"'), "\"a\"\"b\"");
  EXPECT_EQ(TmyString("a'\"").Quote('\''), "\"a''\"\"");
  EXPECT_EQ(TmyString().Quote('"'), "\"\"");
  char field[5];
  CopyText(field, "abcdef");
  EXPECT_EQ(std::string_view(field, 5), std::string_view("abcd\0", 5));
  CopyText(field, "x");
  EXPECT_EQ(std::string_view(field, 5), std::string_view("x\0\0\0\0", 5));
}

// Two strings that share now and then, changed at random beside two std::string that cannot share.
TEST(TmyString, BehavesLikeAStringThatIsNeverShared) {
  std::mt19937 random(20260101);
  TmyString texts[2];
  std::string models[2];
  for (int step = 0; step < 20000; ++step) {
    const size_t i = random() % 2;
    const auto n = static_cast<uint32_t>(random() % 12);
    const auto length = static_cast<uint32_t>(models[i].size());
    switch (random() % 8) {
      case 0:
        texts[i] = texts[1 - i], models[i] = models[1 - i];
        break;
      case 1:
        texts[i] += texts[n % 2], models[i] += std::string(models[n % 2]);
        break;
      case 2:
        texts[i] += static_cast<char>('a' + n), models[i] += static_cast<char>('a' + n);
        break;
      case 3:
        texts[i].RemoveLeft(n), models[i].erase(0, n);
        break;
      case 4:
        texts[i].RemoveRight(n), models[i].resize(length - std::min(n, length));
        break;
      case 5:
        texts[i] = texts[i].Mid(n, n), models[i] = n < length ? models[i].substr(n, n) : "";
        break;
      case 6:
        if (n < length) *texts[i].WritableAt(n) = '*', models[i][n] = '*';
        break;
      default:
        texts[i].Append(texts[i].View().substr(length / 2)), models[i] += models[i].substr(length / 2);
        break;
    }
    if (models[i].size() > 400) texts[i].RemoveLeft(390), models[i].erase(0, 390);
    for (const size_t k : {0U, 1U}) {
      ASSERT_EQ(texts[k].View(), models[k]) << step;
      ASSERT_EQ(texts[k].Chars()[models[k].size()], 0) << step;
      ASSERT_GT(texts[k].Capacity(), texts[k].Length()) << step;
    }
    ASSERT_EQ(texts[0].Find("ab", n), static_cast<int32_t>(models[0].find("ab", n))) << step;
  }
}

}  // namespace

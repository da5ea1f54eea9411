#include "foundation/TmyString.h"

#include "tests/support/Test.h"

TEST(TmyString, CapacityDependsOnHowAStringWasMade) {
  const TmyString five("abcde");
  const std::tuple<TmyString, std::string_view, uint32_t> kCases[] = {
      {TmyString(nullptr, 7), "", 1},
      {TmyString("a\0b", 3), std::string_view("a\0b", 3), 4},
      {TmyString(L"caf\u00e9\u4e2d"), "caf\xE9?", 6},
      {TmyString::WithRoom(3), "", 17},
      {five + "12345678901", "abcde12345678901", 18},
      {"12345678901" + five, "12345678901abcde", 17},
      {static_cast<const char*>(nullptr) + five, "abcde", 17},
      {TmyString::Repeat('-', 16), "----------------", 18},
      {TmyString::FromDecimal(-7, 3, 6), "  -007", 33},
      {TmyString::FromDecimal(7, 0, 40), "                                       7", 41},
      {TmyString::FromDecimal(INT64_MIN), "-9223372036854775808", 33},
      {TmyString::FromHex(0), "0", 18},
      {TmyString::FromHex(0xAB, 20), "000000000000000000ab", 21},
      {Formatted("%s-%lld", "a", -5000000000LL), "a--5000000000", 14}};
  for (const auto& [text, expected, capacity] : kCases) {
    EXPECT_EQ(text.View(), expected);
    EXPECT_EQ(text.Capacity(), capacity) << expected;
    EXPECT_EQ(text.Chars()[text.Length()], 0) << expected;
  }
}

TEST(TmyString, WritableAccessStaysInsideTheBlock) {
  TmyString text = TmyString::WithRoom(20);
  const TmyString other = text;
  for (uint32_t index = 21; index > 0; --index) *text.WritableAt(index - 1) = 'z';
  EXPECT_EQ(std::strlen(text.Chars()), 21U);  // still terminated, behind the last byte of the capacity
  for (const uint32_t index : {21U, 0xFFFFFFFFU}) *text.WritableAt(index) = 'y';
  EXPECT_EQ(*text.WritableAt(21), 0);
  *TmyString().WritableAt(0) = 'q';
  EXPECT_STREQ(TmyString().Chars(), "");
}

TEST(TmyString, AppendsAndFormatsItsOwnCharactersAndLeavesACopyAlone) {
  const TmyString original("abc");
  TmyString text = original;
  text.SetTag(9);
  EXPECT_EQ(original.Tag(), 0U);
  text = original;
  text.Append(text.View().substr(1));
  const TmyString longer = text;
  text.Format("%s/%s", text.Chars(), text.Chars() + 3);
  text = text;
  EXPECT_EQ(text, "abcbc/bc");
  EXPECT_EQ(text.Capacity(), 9U);
  EXPECT_EQ(longer, "abcbc");
  EXPECT_EQ(original, "abc");
}

TEST(TmyString, ShortOfMemoryKeepsTheText) {
  constexpr uint32_t kMost = 0xFFFFFFFF;
  for (const TmyString& none : {TmyString::Repeat('x', kMost), TmyString::WithRoom(kMost),
                                TmyString::FromDecimal(1, kMost, kMost), TmyString::FromHex(1, kMost)}) {
    EXPECT_EQ(none.Capacity(), 1U);
  }
  // More than the address space has in one piece; what lies behind the text is never looked at.
  TmyString text("abc");
  for (const uint32_t size : {0x7FFFFE00U, 0x7FFFFFFFU, kMost}) text.Append(std::string_view(text.Chars(), size));
  EXPECT_EQ(text, "abc");
  EXPECT_EQ(text.Capacity(), 4U);
}

TEST(TmyString, DerivedTexts) {
  char cut[] = "....", filled[] = "....";
  CopyText(cut, "abcdef");
  CopyText(filled, "x");
  EXPECT_EQ(std::string(cut, 5) + std::string(filled, 5), std::string("abcd\0x\0\0\0\0", 10));
  const TmyString text("abcd"), quotes("a'\"");
  const TmyString texts[] = {text.Mid(2, 0xFFFFFFFF),
                             text.Mid(0xFFFFFFFF, 0xFFFFFFFF),
                             TmyString("AbZ\xC9[").Lower(),
                             TmyString("abZ\xE9{").Upper(),
                             quotes.Quote('"'),
                             quotes.Quote('\''),
                             TmyString().Quote('"')};
  EXPECT_THAT(texts, ElementsAre("cd", "", "abz\xC9[", "ABZ\xE9{", "\"a'\"\"\"", "\"a''\"\"", "\"\""));
  std::vector<std::string> trimmed;
  for (const char* padded : {" \t\x01", "\xE9t\xE9", " a b\r\n", "\x80\xFF a\x80z\xFF", "\x7F!"}) {
    trimmed.emplace_back(TmyString::TrimView(padded));
  }
  EXPECT_THAT(trimmed, ElementsAre("", "t", "a b", "a\x80z", "\x7F!"));
}

TEST(TmyString, PathParts) {
  std::vector<TmyString> parts;
  for (const TmyString text : {"a.txt", "C:\\x\\a.b.c", "C:\\x.y\\a", "x\\"}) {
    parts.push_back(text.FilePath() + "|" + text.FileName() + "|" + text.FileExt() + "|" + text.RemoveExt());
  }
  EXPECT_THAT(parts, ElementsAre("|a.txt|txt|a", "C:\\x|a.b.c|c|C:\\x\\a.b", "C:\\x.y|a|y\\a|C:\\x.y\\a", "x|||x\\"));
}

TEST(TmyString, SearchesAndReadsNumbers) {
  const TmyString text("Radio radio");
  const long found[] = {text.Find("radio"), text.Find("Radio", 1),      text.Find("", 11),
                        text.Find("", 12),  text.Find("x", 0xFFFFFFFF), text.Find(nullptr)};
  EXPECT_THAT(found, ElementsAre(6, -1, 11, -1, -1, 0));
  const long foundOtherwise[] = {
      text.FindNoCase("RADIO", 1), text.FindNoCase("radios"), text.FindNoCase("", 12), text.FindNoCase("o", 0xFFFFFFFF),
      text.FindChar('o', 5),       text.FindChar('o', 11),    text.FindChar('\0')};
  EXPECT_THAT(foundOtherwise, ElementsAre(6, -1, -1, -1, 10, -1, -1));
  const long read[] = {TmyString().ToLong(), TmyString(" -12x").ToLong(), TmyString("0x1F").ToLong(),
                       TmyString("ffffffff").ToLong(true), TmyString("99999999999").ToLong()};
  EXPECT_THAT(read, ElementsAre(0, -12, 0, -1, 2147483647));
}

TEST(TmyString, ComparesUnsignedBytes) {
  const TmyString none, a("a"), ab("ab"), high("\x80"), zeroB("a\0b", 3), zeroC("a\0c", 3);
  const int orders[] = {none.Compare(none), none.Compare(a),   ab.Compare(a),
                        a.Compare("B"),     high.Compare("z"), zeroB.Compare(zeroC)};
  EXPECT_THAT(orders, ElementsAre(0, -1, 1, 1, 1, -1));
  EXPECT_TRUE(ab > a && !(a > a) && !(zeroB == zeroC));
}

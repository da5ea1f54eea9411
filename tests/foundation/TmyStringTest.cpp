#include "foundation/TmyString.h"

#include "tests/support/Test.h"

// Appending, cutting, comparing and searching is tested against std::string, see fuzz/StringModel.cpp.
TEST(TmyString, MakesTextsOfNumbersAndPieces) {
  const TmyString five("abcde");
  const TmyString texts[] = {TmyString(nullptr, 7),
                             static_cast<const char*>(nullptr) + five,
                             TmyString::FromDecimal(-7, 3, 6),
                             TmyString::FromDecimal(INT64_MIN),
                             TmyString::FromHex(0),
                             TmyString::FromHex(0xAB, 4),
                             Formatted("%s-%lld", "a", -5000000000LL),
                             TmyString("AbZ\xC9[").Lower(),
                             TmyString("abZ\xE9{").Upper()};
  EXPECT_THAT(texts, ElementsAre("", "abcde", "  -007", "-9223372036854775808", "0", "00ab", "a--5000000000",
                                 "abz\xC9[", "ABZ\xE9{"));
  char cut[] = "....", filled[] = "....";
  CopyText(cut, "abcdef");
  CopyText(filled, "x");
  EXPECT_EQ(std::string(cut, 5) + std::string(filled, 5), std::string("abcd\0x\0\0\0\0", 10));
}

TEST(TmyString, PathParts) {
  std::vector<TmyString> parts;
  for (const TmyString text : {"a.txt", "C:\\x\\a.b.c", "C:\\x.y\\a", "x\\"}) {
    parts.push_back(text.FilePath() + "|" + text.FileName() + "|" + text.FileExt() + "|" + text.RemoveExt());
  }
  EXPECT_THAT(parts, ElementsAre("|a.txt|txt|a", "C:\\x|a.b.c|c|C:\\x\\a.b", "C:\\x.y|a|y\\a|C:\\x.y\\a", "x|||x\\"));
}

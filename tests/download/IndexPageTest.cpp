#include "download/IndexPage.h"

#include "tests/support/Test.h"

namespace {

// "no page", or the names with a blank behind each.
std::string Found(std::string_view page, const TmyStringList& known) {
  TmyStringList archives;
  if (!IndexPage::FindArchives(page, known, archives)) return "no page";
  std::string names;
  for (uint32_t i = 0; i < archives.Count(); ++i) names += archives.Get(i).Chars() + std::string(" ");
  return names;
}

TEST(IndexPageTest, LinksInListItems) {
  const std::string longest = std::string(96, 'n') + ".zip";
  const std::pair<std::string, std::string> cases[] = {
      {"<ul><LI><A HREF=\"a.zip\">", "no page"},
      {"<LI HREF=\"a.zip\"><UL>", ""},
      {"<UL><LI><A HREF=\"a26/a26allx2.zip\"></A><LI> <A CLASS=x HREF = \"/b.zip\">", "a26allx2.zip b.zip "},
      {"<UL><LI>old, without a link<LI><A HREF=\"  a.zip\"><LI>", "a.zip "},
      {"<UL><li><A HREF=\"a.zip\"><LI><A href=\"b.zip\"><LI><A HREF='c.zip'>", ""},
      {"<UL><LI><A HREF=\"a.ZIP\"><LI><A HREF=\"a.zip.exe\"><LI><A HREF=\"zip\"><LI><A HREF=\"a.zip \">", ""},
      {"<UL><LI><A HREF=\"x/here.zip\"><LI><A HREF=\"Here.zip\"><LI><A HREF=\"here.zip.zip\">",
       "Here.zip here.zip.zip "},
      {"<UL><LI><A HREF=\"../..zip\"><LI><A HREF=\"x\\a.zip\"><LI><A HREF=\"c:a.zip\"><LI><A HREF=\"a\n.zip\">", ""},
      {"<UL><LI><A HREF=\"con.zip\"><LI><A HREF=\"Lpt1 .a.zip\"><LI><A HREF=\"COM0.zip\">", "COM0.zip "},
      {"<UL><LI>HREF\"a b.zip\"<LI>HREF\"*.zip\"<LI>HREF\"?.zip\"<LI>HREF\"<.zip\"<LI>HREF\"|.zip\"<LI>HREF\".zip\"",
       ""},
      {"<UL><LI>HREF\"" + longest + "\"<LI>HREF\"n" + longest + "\"", longest + " "},
      {"<UL><LI><A HREF=\"a.zip\"><LI><A HREF=\"cut.zip", "a.zip "},
  };
  TmyStringList known;
  known.Add("here");
  for (const auto& [page, names] : cases) EXPECT_EQ(Found(page, known), names) << page;
}

}  // namespace

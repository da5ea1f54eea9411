#include "foundation/TmyStringList.h"

#include "tests/support/Test.h"

TEST(TmyStringList, SplitsAnyMixtureOfTerminators) {
  using Strings = std::vector<std::string>;
  const std::pair<std::string, Strings> kCases[] = {{"", {}},
                                                    {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
                                                    {"\n\n\r", {"", "", ""}},
                                                    {"\r\r\n", {"", ""}},
                                                    {std::string("\0a\0\n", 4), {std::string("\0a\0", 3)}}};
  for (const auto& [text, expected] : kCases) {
    TmyStringList list;
    list.SetText((text + "\n").c_str(), static_cast<uint32_t>(text.size()));  // what follows is not ours
    Strings lines;
    for (uint32_t i = 0; i < list.Count(); ++i) lines.emplace_back(list.Get(i).View());
    EXPECT_EQ(lines, expected);
  }
}

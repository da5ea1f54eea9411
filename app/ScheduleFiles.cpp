#include "app/ScheduleFiles.h"

#include <algorithm>
#include <string_view>
#include <tuple>

#include "foundation/FolderFiles.h"

namespace {

bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}

// Grows with the season; -1 for a name of another kind.
int SeasonOf(const TmyString& lowerName) noexcept {
  const std::string_view name = lowerName.View();
  const bool isSeason = name.size() >= 3 && (name[0] == 'a' || name[0] == 'b') && IsDigit(name[1]) && IsDigit(name[2]);
  return isSeason ? ((name[1] - '0') * 10 + (name[2] - '0')) * 2 + (name[0] - 'a') : -1;
}

}  // namespace

ScheduleFiles ListScheduleFiles(const TmyString& folder) {
  ScheduleFiles files;
  for (const TmyString& name : FolderFiles(folder)) {
    const TmyString lower = name.Lower();
    if (lower == "eibi.txt") {
      files.hasEibi = true;
    } else if (lower.FileExt() == "zip") {
      files.archives.push_back(name);
    }
  }
  return files;
}

TmyString NewestArchive(const std::vector<TmyString>& archives) {
  const auto later = [](const TmyString& left, const TmyString& right) {
    const TmyString a = left.Lower();
    const TmyString b = right.Lower();
    return std::tuple(SeasonOf(a), a.View()) < std::tuple(SeasonOf(b), b.View());
  };
  const auto newest = std::max_element(archives.begin(), archives.end(), later);
  return newest == archives.end() ? TmyString() : *newest;
}

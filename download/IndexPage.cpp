#include "download/IndexPage.h"

#include <algorithm>
#include <unordered_set>

namespace {

constexpr auto kNowhere = std::string_view::npos;
constexpr std::string_view kArchiveEnding = ".zip";

// The link of the next list item from `at` on, which then stands behind it. False: there is none.
bool NextLink(std::string_view page, size_t& at, std::string_view& link) noexcept {
  size_t from = page.find("<LI>", at);
  for (const std::string_view mark : {"HREF", "\""}) {
    if (from != kNowhere) from = page.find(mark, from);
  }
  const size_t end = from == kNowhere ? kNowhere : page.find('"', from + 1);
  if (end == kNowhere) return false;
  link = page.substr(from + 1, end - from - 1);
  at = end + 1;
  return true;
}

// The archive that a link names, without folders; empty when it is none.
std::string_view ArchiveOf(std::string_view link) noexcept {
  link.remove_prefix(std::min(link.find_first_not_of(' '), link.size()));
  if (!link.ends_with(kArchiveEnding)) return {};
  return link.substr(link.rfind('/') + 1);
}

constexpr char UpperOf(char c) noexcept {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool EqualsNoCase(std::string_view text, std::string_view upperCase) noexcept {
  return std::ranges::equal(text, upperCase, {}, UpperOf);
}

// What the system takes for a device whatever follows its first dot. The ports also count in raised digits.
bool IsDevice(std::string_view name) noexcept {
  name = name.substr(0, name.find('.'));
  name = name.substr(0, name.find_last_not_of(' ') + 1);
  for (const std::string_view device : {"CON", "PRN", "AUX", "NUL", "CLOCK$", "CONIN$", "CONOUT$"}) {
    if (EqualsNoCase(name, device)) return true;
  }
  if (name.size() != 4 || std::string_view("123456789\xB9\xB2\xB3").find(name[3]) == kNowhere) return false;
  return EqualsNoCase(name.substr(0, 3), "COM") || EqualsNoCase(name.substr(0, 3), "LPT");
}

}  // namespace

bool IndexPage::FindArchives(std::string_view page, const TmyStringList& known, TmyStringList& archives) {
  size_t at = page.find("<UL>");
  if (at == kNowhere) return false;
  std::unordered_set<std::string_view> knownNames;
  for (uint32_t i = 0; i < known.Count(); ++i) knownNames.insert(known.Get(i).View());
  for (std::string_view link; NextLink(page, at, link);) {
    const std::string_view archive = ArchiveOf(link);
    if (archive.empty() || !IsBareFileName(archive)) continue;
    const std::string_view baseName = archive.substr(0, archive.size() - kArchiveEnding.size());
    if (!knownNames.contains(baseName)) archives.Add(TmyString(archive));
  }
  return true;
}

bool IndexPage::IsBareFileName(std::string_view name) noexcept {
  constexpr size_t kLongest = 100;
  constexpr char kDelete = 0x7F;
  const auto isForbidden = [](char c) {
    return static_cast<uint8_t>(c) < ' ' || c == kDelete || c == ':' || c == '/' || c == '\\';
  };
  return !name.empty() && name.size() <= kLongest && name.find("..") == kNowhere &&
         std::ranges::none_of(name, isForbidden) && !IsDevice(name);
}

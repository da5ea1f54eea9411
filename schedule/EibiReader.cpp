#include "schedule/EibiReader.h"

#include <algorithm>

#include "foundation/FloatMode.h"
#include "foundation/TmyStringList.h"

namespace {

constexpr uint32_t kHeaderLines = 17;
constexpr uint32_t kInitialLines = 1024;
constexpr uint32_t kMaximumLines = 0x40000;

}  // namespace

std::unique_ptr<TmyTypeList<EibiItem>> LoadEibi(const TmyString& folder) {
  const OwnFloatMode ours;  // frequencies have decimals
  TmyStringList lines(kInitialLines, kMaximumLines);
  if (!lines.LoadFromFile(folder + "\\eibi.txt")) return std::make_unique<TmyTypeList<EibiItem>>();

  const uint32_t count = lines.Count();
  auto items = std::make_unique<TmyTypeList<EibiItem>>(count > kHeaderLines ? count - kHeaderLines : 1, 0);
  // From the last line down, each line given back once it is read: its memory is still warm then, and the list gives up
  // its last entry without moving others.
  EibiPool pool;
  EibiItem item;
  for (uint32_t left = count; left > kHeaderLines; --left) {
    const bool valid = item.Parse(lines.Get(left - 1).View());
    lines.Delete(left - 1);
    if (valid) items->Add(std::unique_ptr<EibiItem>(new (pool) EibiItem(item)));
  }
  std::reverse(items->Entries(), items->Entries() + items->Count());
  return items;
}

// Line ends as TmyStringList takes them: CR LF, CR and LF.
bool HoldsEibiBroadcast(std::string_view content) {
  const size_t first = content.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
  if (first != std::string_view::npos && content[first] == '<')
    return false;  // a web page, whatever its lines look like
  const OwnFloatMode ours;
  EibiItem item;
  for (uint32_t line = 0; line < kMaximumLines && !content.empty(); ++line) {
    const size_t end = std::min(content.find_first_of("\r\n"), content.size());
    if (line >= kHeaderLines && item.Parse(content.substr(0, end))) return true;
    const bool pair = content.substr(end, 2) == "\r\n";
    content.remove_prefix(std::min(end + (pair ? 2 : 1), content.size()));
  }
  return false;
}

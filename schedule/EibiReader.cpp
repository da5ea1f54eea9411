#include "schedule/EibiReader.h"

#include "foundation/TmyStringList.h"

namespace {

constexpr uint32_t kHeaderLines = 17;
constexpr uint32_t kInitialLines = 1024;
constexpr uint32_t kMaximumLines = 0x40000;

}  // namespace

std::unique_ptr<TmyTypeList<EibiItem>> LoadEibi(const TmyString& folder) {
  TmyStringList lines(kInitialLines, kMaximumLines);
  if (!lines.LoadFromFile(folder + "\\eibi.txt")) return std::make_unique<TmyTypeList<EibiItem>>();

  const uint32_t count = lines.Count();
  auto items = std::make_unique<TmyTypeList<EibiItem>>(count > kHeaderLines ? count - kHeaderLines : 1, 0);
  for (uint32_t i = kHeaderLines; i < count; ++i) {
    auto item = std::make_unique<EibiItem>();
    if (item->Parse(lines.Get(i).View())) items->Add(std::move(item));
  }
  return items;
}

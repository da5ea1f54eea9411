#include "foundation/TmyString.h"
#include "fuzz/EibiChecks.h"

namespace {

template <size_t kSize>
bool Holds(const char (&field)[kSize], std::string_view line, size_t from, size_t to = std::string_view::npos) {
  const std::string_view cut = from < line.size() ? line.substr(from, to - from) : std::string_view();
  return std::string(TmyString::TrimView(cut).substr(0, kSize - 1)).c_str() == std::string_view(field);
}

}  // namespace

void Try(Input& input) {
  const std::string_view line = input.Rest();
  EibiItem item;
  const bool valid = item.Parse(line);
  REQUIRE(valid == (item.valid == 1) && (!valid || line.size() >= 63));
  if (valid) {
    CheckItem(item);
    REQUIRE(Holds(item.frequencyText, line, 0, 14) && Holds(item.itu, line, 30, 34) &&
            Holds(item.station, line, 34, 59));
    REQUIRE(Holds(item.language, line, 59, 63) && Holds(item.target, line, 63, 75) && Holds(item.remarks, line, 75));
  }
  EibiItem again;
  std::memset(static_cast<void*>(&again), 0x5A, sizeof again);  // what was there before does not matter
  REQUIRE(again.Parse(line) == valid);
  if (valid) REQUIRE(std::strcmp(again.startText, item.startText) == 0 && again.end == item.end);
}

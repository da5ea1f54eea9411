#include "app/ShownZone.h"

#include <algorithm>

std::string_view WriteTime(int32_t minutes, CellBuffer& buffer) noexcept {
  const auto digit = [](int32_t value) { return static_cast<char>('0' + value % 10); };
  const int32_t hours = minutes / 60;
  const int32_t rest = minutes % 60;
  const char text[] = {digit(hours / 10), digit(hours), ':', digit(rest / 10), digit(rest), 0};
  static_assert(sizeof text <= sizeof buffer);
  std::copy(std::begin(text), std::end(text), buffer);
  return {buffer, sizeof text - 1};
}

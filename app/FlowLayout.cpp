#include "app/FlowLayout.h"

std::vector<FlowPlace> FlowLayout(const std::vector<FlowGroup>& groups, int available, int gap) {
  std::vector<FlowPlace> places;
  places.reserve(groups.size());
  int left = 0;
  int row = 0;
  for (const FlowGroup& group : groups) {
    const bool isFirst = left == 0;
    if (!isFirst && (group.startsRow || left + group.width > available)) {
      left = 0;
      ++row;
    }
    places.push_back({left, row});
    left += group.width + gap;
  }
  return places;
}

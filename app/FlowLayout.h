// Marlux 3. Places groups of controls side by side and begins a new row before a group that no longer fits.
#pragma once

#include <vector>

struct FlowGroup {
  int width = 0;
  bool startsRow = false;  // wants a new row although there is room
};

struct FlowPlace {
  int left = 0;
  int row = 0;
};

// `available` and `gap` in the unit of the widths. A group wider than a row gets a row of its own. Returns a place for
// each group, in order; lefts count from 0.
[[nodiscard]] std::vector<FlowPlace> FlowLayout(const std::vector<FlowGroup>& groups, int available, int gap);

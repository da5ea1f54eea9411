// Marlux 3. What a string grid shows on top of itself while one of its column borders or titles is dragged. The windows
// are made at the first drag.
#pragma once

#include "toolkit/GridGeometry.h"
#include "toolkit/TmyFloatingSelection.h"

class GridMarkers {
 public:
  void ShowBorder(TmyComponent& grid, const GridGeometry::Layout& layout, uint32_t column);
  // A title that was dragged to `left` and would be dropped into the gap.
  void ShowTitle(TmyComponent& grid, const GridGeometry::Layout& layout, const TmyString& title, uint32_t column,
                 int left, uint32_t gap);
  void Hide();

 private:
  void ShowLine(TmyComponent& grid, const GridGeometry::Layout& layout, int x);

  TmyFloatingSelection* line_ = nullptr;  // both belong to their windows, children of the grid
  TmyFloatingSelection2* title_ = nullptr;
};

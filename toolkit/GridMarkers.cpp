#include "toolkit/GridMarkers.h"

#include <algorithm>

#include "toolkit/TmyApplication.h"

// Inside the columns' area, so that a line at its very end is seen, too.
void GridMarkers::ShowLine(TmyComponent& grid, const GridGeometry::Layout& layout, int x) {
  if (!line_) line_ = new TmyFloatingSelection(grid);
  const int thickness = Theme().Scaled(2);
  const int last = std::max<int>(layout.area.left, layout.area.right - thickness);
  const int left = std::clamp<int>(x - thickness / 2 - 1, layout.area.left, last);
  line_->ShowAt({left, layout.area.top, left + thickness, layout.area.bottom});
}

void GridMarkers::ShowBorder(TmyComponent& grid, const GridGeometry::Layout& layout, uint32_t column) {
  ShowLine(grid, layout, GridGeometry::ColumnStrip(layout, column).right);
}

void GridMarkers::ShowTitle(TmyComponent& grid, const GridGeometry::Layout& layout, const TmyString& title,
                            uint32_t column, int left, uint32_t gap) {
  if (!title_) title_ = new TmyFloatingSelection2(grid);
  title_->SetText(title);
  RECT place = GridGeometry::ColumnStrip(layout, column);
  place.bottom = GridGeometry::TitleRow(layout).bottom - 1;
  OffsetRect(&place, left - place.left, 0);
  title_->ShowAt(place);
  ShowLine(grid, layout, GridGeometry::GapEdge(layout, gap));
}

void GridMarkers::Hide() {
  if (line_ && line_->IsVisible()) line_->Show(false);
  if (title_ && title_->IsVisible()) title_->Show(false);
}

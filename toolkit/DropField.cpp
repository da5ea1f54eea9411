#include "toolkit/DropField.h"

#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyListBox.h"

namespace {

constexpr int kArrowWidth = 9;  // at 96 dpi
constexpr int kArrowHeight = 5;
constexpr int kArrowMargin = 8;

int ArrowRoom() {
  return Theme().Scaled(kArrowWidth + kArrowMargin / 2);
}

void PaintArrow(HDC dc, int right, int centre, COLORREF color) {
  constexpr int kUnits = ThemeDraw::kUnits;
  const int width = Theme().Scaled(kArrowWidth);
  const int height = Theme().Scaled(kArrowHeight);
  const int left = right - width;
  const int top = centre - height / 2;
  const POINT points[] = {{left * kUnits, top * kUnits},
                          {right * kUnits, top * kUnits},
                          {(left + right) * kUnits / 2, (top + height) * kUnits}};
  ThemeDraw::Polygon(dc, points, 3, color);
}

}  // namespace

RECT DropField::Paint(HDC dc, const RECT& all, bool enabled, bool active) {
  const TmyTheme::Colors& color = Theme().Color();
  ThemeDraw::Fill(dc, all, enabled ? color.field : color.surface);
  ThemeDraw::Frame(dc, all, enabled && active ? color.accent : color.line);
  const LONG arrowRight = all.right - Theme().Scaled(kArrowMargin);
  PaintArrow(dc, arrowRight, (all.bottom + 1) / 2, enabled ? color.secondary : color.disabled);
  return {all.left + TmyListBox::TextInset(), all.top, arrowRight - ArrowRoom(), all.bottom};
}

int DropField::WidthFor(int textWidth) {
  return TmyListBox::TextInset() + textWidth + ArrowRoom() + Theme().Scaled(kArrowMargin);
}

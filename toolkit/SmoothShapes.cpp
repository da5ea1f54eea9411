#include "toolkit/SmoothShapes.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "toolkit/ThemeDraw.h"

namespace {

using ThemeDraw::kUnits;
constexpr size_t kCorners = 32;  // enough for a circle of some 30 pixels
constexpr int kMarkGrid = 208;   // the check mark's square: 13 pixels of 16 units

// Two strokes of 1.9 pixels at 45 degrees.
constexpr POINT kCheckMark[] = {{36, 111}, {57, 90}, {86, 119}, {155, 50}, {176, 71}, {86, 162}};

}  // namespace

namespace SmoothShapes {

void Circle(HDC dc, int left, int top, int size, int inset, COLORREF color) {
  const double radius = size * kUnits / 2.0 - inset;
  std::array<POINT, kCorners> points{};
  for (size_t i = 0; i < kCorners; ++i) {
    const double angle = 2 * std::numbers::pi * static_cast<double>(i) / kCorners;
    points[i].x = std::lround(left * kUnits + size * kUnits / 2.0 + radius * std::cos(angle));
    points[i].y = std::lround(top * kUnits + size * kUnits / 2.0 + radius * std::sin(angle));
  }
  ThemeDraw::Polygon(dc, points.data(), kCorners, color);
}

void CheckMark(HDC dc, int left, int top, int size, COLORREF color) {
  std::array<POINT, std::size(kCheckMark)> points{};
  for (size_t i = 0; i < points.size(); ++i) {
    points[i].x = left * kUnits + MulDiv(kCheckMark[i].x, size * kUnits, kMarkGrid);
    points[i].y = top * kUnits + MulDiv(kCheckMark[i].y, size * kUnits, kMarkGrid);
  }
  ThemeDraw::Polygon(dc, points.data(), static_cast<int>(points.size()), color);
}

void Box(HDC dc, const RECT& area, COLORREF fill, COLORREF frame, int thickness) {
  const POINT corners[] = {{area.left, area.top},
                           {area.right - 1, area.top},
                           {area.left, area.bottom - 1},
                           {area.right - 1, area.bottom - 1}};
  COLORREF below[std::size(corners)] = {};
  for (size_t i = 0; i < std::size(corners); ++i) below[i] = GetPixel(dc, corners[i].x, corners[i].y);
  ThemeDraw::Fill(dc, area, fill);
  ThemeDraw::Frame(dc, area, frame, thickness);
  for (size_t i = 0; i < std::size(corners); ++i) {
    if (below[i] == CLR_INVALID) continue;  // outside of what is being painted
    SetPixelV(dc, corners[i].x, corners[i].y, ThemeDraw::Mixed(frame, below[i], 25));
  }
}

}  // namespace SmoothShapes

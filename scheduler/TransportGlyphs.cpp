#include "scheduler/TransportGlyphs.h"

#include <array>

#include "toolkit/SmoothShapes.h"
#include "toolkit/ThemeDraw.h"

namespace {

using ThemeDraw::kUnits;
constexpr int kGrid = 14;             // the shapes below are drawn on a square of 14 by 14
constexpr int kRecordInset = kUnits;  // the dot's distance from the square

template <size_t kCount>
void Draw(HDC dc, const RECT& square, const POINT (&shape)[kCount], COLORREF color) {
  const int side = square.right - square.left;
  std::array<POINT, kCount> points{};
  for (size_t i = 0; i < kCount; ++i) {
    points[i] = {square.left * kUnits + MulDiv(shape[i].x, side * kUnits, kGrid),
                 square.top * kUnits + MulDiv(shape[i].y, side * kUnits, kGrid)};
  }
  ThemeDraw::Polygon(dc, points.data(), static_cast<int>(kCount), color);
}

constexpr POINT kBackFirst[] = {{7, 2}, {7, 12}, {1, 7}};
constexpr POINT kBackSecond[] = {{13, 2}, {13, 12}, {7, 7}};
constexpr POINT kPlay[] = {{3, 1}, {12, 7}, {3, 13}};
constexpr POINT kStop[] = {{2, 2}, {12, 2}, {12, 12}, {2, 12}};
constexpr POINT kPauseLeft[] = {{3, 2}, {6, 2}, {6, 12}, {3, 12}};
constexpr POINT kPauseRight[] = {{8, 2}, {11, 2}, {11, 12}, {8, 12}};
constexpr POINT kForwardFirst[] = {{1, 2}, {7, 7}, {1, 12}};
constexpr POINT kForwardSecond[] = {{7, 2}, {13, 7}, {7, 12}};
constexpr POINT kFolder[] = {{1, 2}, {6, 2}, {7, 4}, {13, 4}, {13, 12}, {1, 12}};

}  // namespace

namespace TransportGlyphs {

void Back(HDC dc, const RECT& square, COLORREF color) {
  Draw(dc, square, kBackFirst, color);
  Draw(dc, square, kBackSecond, color);
}

void Play(HDC dc, const RECT& square, COLORREF color) {
  Draw(dc, square, kPlay, color);
}

void Stop(HDC dc, const RECT& square, COLORREF color) {
  Draw(dc, square, kStop, color);
}

void Pause(HDC dc, const RECT& square, COLORREF color) {
  Draw(dc, square, kPauseLeft, color);
  Draw(dc, square, kPauseRight, color);
}

void Forward(HDC dc, const RECT& square, COLORREF color) {
  Draw(dc, square, kForwardFirst, color);
  Draw(dc, square, kForwardSecond, color);
}

void Record(HDC dc, const RECT& square, COLORREF color) {
  SmoothShapes::Circle(dc, square.left, square.top, square.right - square.left, kRecordInset, color);
}

void Open(HDC dc, const RECT& square, COLORREF color) {
  Draw(dc, square, kFolder, color);
}

}  // namespace TransportGlyphs

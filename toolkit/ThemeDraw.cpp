#include "toolkit/ThemeDraw.h"

#include <algorithm>
#include <cstdint>

#include "toolkit/GdiHandle.h"

namespace {

using ThemeDraw::kUnits;
constexpr int kSamples = 4;

// How much of a pixel lies inside the polygon, 0 to kSamples * kSamples.
int Coverage(const POINT* points, int count, int x, int y) noexcept {
  int inside = 0;
  for (int sample = 0; sample < kSamples * kSamples; ++sample) {
    const int px = x * kUnits + (sample % kSamples) * kUnits / kSamples + kUnits / (2 * kSamples);
    const int py = y * kUnits + (sample / kSamples) * kUnits / kSamples + kUnits / (2 * kSamples);
    bool odd = false;
    for (int i = 0, j = count - 1; i < count; j = i++) {
      const POINT& a = points[i];
      const POINT& b = points[j];
      if ((a.y > py) == (b.y > py)) continue;
      const int64_t crossing = int64_t{b.x - a.x} * (py - a.y) / (b.y - a.y) + a.x;
      if (px < crossing) odd = !odd;
    }
    inside += odd ? 1 : 0;
  }
  return inside;
}

COLORREF Blend(COLORREF below, COLORREF above, int share, int whole) noexcept {
  const auto mix = [&](int from, int to) { return static_cast<BYTE>((from * (whole - share) + to * share) / whole); };
  return RGB(mix(GetRValue(below), GetRValue(above)), mix(GetGValue(below), GetGValue(above)),
             mix(GetBValue(below), GetBValue(above)));
}

}  // namespace

namespace ThemeDraw {

COLORREF Mixed(COLORREF a, COLORREF b, int percent) noexcept {
  return Blend(b, a, percent, 100);
}

void Fill(HDC dc, const RECT& area, COLORREF color) {
  const auto brush = static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
  const COLORREF former = SetDCBrushColor(dc, color);
  FillRect(dc, &area, brush);
  SetDCBrushColor(dc, former);
}

void Frame(HDC dc, const RECT& area, COLORREF color, int thickness) {
  const RECT& a = area;
  Fill(dc, {a.left, a.top, a.right, a.top + thickness}, color);
  Fill(dc, {a.left, a.bottom - thickness, a.right, a.bottom}, color);
  Fill(dc, {a.left, a.top + thickness, a.left + thickness, a.bottom - thickness}, color);
  Fill(dc, {a.right - thickness, a.top + thickness, a.right, a.bottom - thickness}, color);
}

void Text(HDC dc, const RECT& area, std::string_view text, COLORREF color, HFONT font, UINT format, bool prefix) {
  if (text.empty()) return;
  const Selected selected(dc, font);
  const COLORREF formerColor = SetTextColor(dc, color);
  const int formerMode = SetBkMode(dc, TRANSPARENT);
  RECT place = area;
  format |= DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | (prefix ? 0u : static_cast<UINT>(DT_NOPREFIX));
  DrawTextA(dc, text.data(), static_cast<int>(text.size()), &place, format);
  SetBkMode(dc, formerMode);
  SetTextColor(dc, formerColor);
}

void Polygon(HDC dc, const POINT* points, int count, COLORREF color) {
  if (count < 3) return;
  RECT box = {points[0].x, points[0].y, points[0].x, points[0].y};
  for (int i = 1; i < count; ++i) {
    box = {std::min(box.left, points[i].x), std::min(box.top, points[i].y), std::max(box.right, points[i].x),
           std::max(box.bottom, points[i].y)};
  }
  for (int y = box.top / kUnits; y <= box.bottom / kUnits; ++y) {
    for (int x = box.left / kUnits; x <= box.right / kUnits; ++x) {
      const int covered = Coverage(points, count, x, y);
      if (covered == 0) continue;
      const bool whole = covered == kSamples * kSamples;
      SetPixelV(dc, x, y, whole ? color : Blend(GetPixel(dc, x, y), color, covered, kSamples * kSamples));
    }
  }
}

}  // namespace ThemeDraw

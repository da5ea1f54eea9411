// Marlux 3. Drawing that all controls share. Rectangles in the context's coordinates; contexts come back as they were.
#pragma once

#include <windows.h>

#include <string_view>

namespace ThemeDraw {

inline constexpr int kUnits = 16;  // of a polygon's points: so many are a pixel

void Fill(HDC dc, const RECT& area, COLORREF color);
void Frame(HDC dc, const RECT& area, COLORREF color, int thickness = 1);
// One line of text, cut with an ellipsis; `format` takes DT_LEFT, DT_CENTER, DT_RIGHT; an "&" is shown as it is unless
// DT_HIDEPREFIX or `prefix` asks otherwise.
void Text(HDC dc, const RECT& area, std::string_view text, COLORREF color, HFONT font, UINT format = DT_LEFT,
          bool prefix = false);
// `percent` of one colour, the rest of the other.
[[nodiscard]] COLORREF Mixed(COLORREF a, COLORREF b, int percent) noexcept;
// A filled polygon with smooth edges, its points in kUnits.
void Polygon(HDC dc, const POINT* points, int count, COLORREF color);

}  // namespace ThemeDraw

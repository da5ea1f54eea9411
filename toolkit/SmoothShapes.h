// Marlux 3. Small shapes with smooth edges: what boxes, circles and check marks of the drawn controls are made of.
#pragma once

#include <windows.h>

namespace SmoothShapes {

// A filled circle inside a square of `size` pixels, `inset` sixteenths of a pixel away from its edges.
void Circle(HDC dc, int left, int top, int size, int inset, COLORREF color);
// A check mark for a box of `size` pixels.
void CheckMark(HDC dc, int left, int top, int size, COLORREF color);
// A filled rectangle with a frame and slightly rounded corners. Its corners must have been painted before.
void Box(HDC dc, const RECT& area, COLORREF fill, COLORREF frame, int thickness = 1);

}  // namespace SmoothShapes

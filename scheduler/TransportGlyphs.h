// Marlux 3. The pictures of the media panel's buttons, drawn with smooth edges into a square: any size, one colour.
#pragma once

#include <windows.h>

namespace TransportGlyphs {

void Back(HDC dc, const RECT& square, COLORREF color);
void Play(HDC dc, const RECT& square, COLORREF color);
void Stop(HDC dc, const RECT& square, COLORREF color);
void Pause(HDC dc, const RECT& square, COLORREF color);
void Forward(HDC dc, const RECT& square, COLORREF color);
void Record(HDC dc, const RECT& square, COLORREF color);
void Open(HDC dc, const RECT& square, COLORREF color);  // a folder

}  // namespace TransportGlyphs

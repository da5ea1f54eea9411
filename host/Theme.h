// Marlux host. Colours, fonts and the flat look of the host's own window.
#pragma once

#include <windows.h>

#include <string>

// A GDI object that goes with its holder.
template <class Handle>
class GdiObject {
 public:
  explicit GdiObject(Handle handle) : handle_(handle) {}
  GdiObject(const GdiObject&) = delete;
  GdiObject& operator=(const GdiObject&) = delete;
  ~GdiObject() { DeleteObject(handle_); }
  // Implicit: it stands in calls of the system in place of the plain handle.
  operator Handle() const { return handle_; }  // NOLINT(google-explicit-constructor)

 private:
  Handle handle_;
};

// A context of the screen, to measure with.
class ScreenDc {
 public:
  ScreenDc() : dc_(GetDC(nullptr)) {}
  ScreenDc(const ScreenDc&) = delete;
  ScreenDc& operator=(const ScreenDc&) = delete;
  ~ScreenDc() { ReleaseDC(nullptr, dc_); }
  operator HDC() const { return dc_; }  // NOLINT(google-explicit-constructor): as above

 private:
  HDC dc_;
};

// A WM_PAINT of a window: what is drawn goes into memory and comes to the screen as one picture at the end.
class BufferedPaint {
 public:
  explicit BufferedPaint(HWND window);
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;
  ~BufferedPaint();
  [[nodiscard]] HDC Dc() const { return memory_; }
  [[nodiscard]] const RECT& Area() const { return area_; }  // the window's client area

 private:
  HWND window_;
  RECT area_ = {};
  PAINTSTRUCT paint_ = {};
  HDC screen_, memory_;
  GdiObject<HBITMAP> bitmap_;
  HGDIOBJ before_;
};

class Theme {
 public:
  struct Colours {
    COLORREF surface, field, line, text, secondary, disabled, accent, onAccent, pressed, error, notify;
  };

  Theme();  // as the system is set now: its message font and, in high contrast, its colours

  [[nodiscard]] int Scale(int pixelsAt96Dpi) const { return MulDiv(pixelsAt96Dpi, dpi_, 96); }
  [[nodiscard]] int RowHeight() const { return textHeight_ + Scale(4); }
  [[nodiscard]] int FieldHeight() const { return textHeight_ + Scale(12); }
  [[nodiscard]] int TextHeight() const { return textHeight_; }
  [[nodiscard]] int TextWidth(const std::string& text, HFONT font) const;

  Colours colours;

  [[nodiscard]] HFONT Font() const { return font_; }
  [[nodiscard]] HFONT Bold() const { return bold_; }
  [[nodiscard]] HFONT Display() const { return display_; }  // for the frequency

  void Fill(HDC dc, const RECT& area, COLORREF colour) const;
  // A rounded box with a line around it.
  void Box(HDC dc, const RECT& area, COLORREF inside, COLORREF line) const;
  void Write(HDC dc, RECT area, const std::string& text, HFONT font, COLORREF colour, UINT format = DT_LEFT) const;

  struct ButtonState {
    bool pressed, focused, disabled, chosen;
  };
  void Button(HDC dc, const RECT& area, const std::string& text, const ButtonState& state) const;

 private:
  int dpi_;
  LOGFONTA message_;
  GdiObject<HFONT> font_, bold_, display_;
  int textHeight_;
};

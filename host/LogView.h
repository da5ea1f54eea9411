// Marlux host. The log in the window: newest line below, followed until the user scrolls away from it.
#pragma once

#include <windows.h>

#include "host/CallLog.h"
#include "host/Theme.h"

class LogView {
 public:
  LogView(const Theme& theme, const CallLog& log) : theme_(theme), log_(log) {}
  LogView(const LogView&) = delete;
  LogView& operator=(const LogView&) = delete;

  [[nodiscard]] bool Create(HWND parent, int id);
  [[nodiscard]] HWND Window() const { return window_; }
  void Refresh();  // lines have come or gone

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM data);
  LRESULT Handle(UINT message, WPARAM word, LPARAM data);
  void Paint();
  void PaintLine(HDC dc, const RECT& area, const LogLine& line, bool odd) const;
  void PaintBar(HDC dc) const;
  void ScrollTo(int top);
  void Key(WPARAM key);
  void MouseDown(int y);

  [[nodiscard]] RECT Client() const;
  [[nodiscard]] int Count() const { return static_cast<int>(log_.Lines().size()); }
  [[nodiscard]] int Page() const;     // whole lines that fit, at least 1
  [[nodiscard]] int LastTop() const;  // the first line when the end is in view
  [[nodiscard]] RECT Bar() const;
  [[nodiscard]] RECT Thumb() const;  // empty when everything fits

  const Theme& theme_;
  const CallLog& log_;
  HWND window_ = nullptr;
  int top_ = 0;
  bool follows_ = true;
  int wheelRest_ = 0;
  int dragFrom_ = -1;  // where in the thumb the mouse holds it; -1: not at all
};

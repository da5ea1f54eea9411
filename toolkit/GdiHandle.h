// Marlux 3. Owners of GDI objects, device contexts and menus, and what is changed in a context for a block: freed and
// undone when they go out of scope, also when a painting ends for want of memory.
//
//   const PaintDc dc(Handle(), given);
//   if (!dc.Get()) return;              // the system had none
//   const Selected font(dc.Get(), Font());
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

struct GdiDeleter {
  void operator()(void* object) const noexcept { DeleteObject(object); }
};
struct DcDeleter {
  void operator()(HDC dc) const noexcept { DeleteDC(dc); }
};
struct MenuDeleter {
  void operator()(HMENU menu) const noexcept { DestroyMenu(menu); }
};

using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiDeleter>;
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiDeleter>;
using MemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, DcDeleter>;
using MenuHandle = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDeleter>;

// Selects an object into a context for a block.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) noexcept : dc_(dc), former_(SelectObject(dc, object)) {}
  ~Selected() { SelectObject(dc_, former_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ former_;
};

// A context of a window's client area, or of the screen where the window is null.
class WindowDc {
 public:
  explicit WindowDc(HWND window) noexcept : WindowDc(window, GetDC(window)) {}
  WindowDc(HWND window, HDC dc) noexcept : window_(window), dc_(dc) {}  // one that was got in another way
  ~WindowDc() {
    if (dc_) ReleaseDC(window_, dc_);
  }
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  [[nodiscard]] HDC Get() const noexcept { return dc_; }

 private:
  HWND window_;
  HDC dc_;
};

// What a WM_PAINT draws into: the context that came with the message, else the one between BeginPaint and EndPaint.
class PaintDc {
 public:
  PaintDc(HWND window, HDC given) noexcept
      : window_(window), dc_(given ? given : BeginPaint(window, &paint_)), isBegun_(!given && dc_) {}
  ~PaintDc() {
    if (isBegun_) EndPaint(window_, &paint_);
  }
  PaintDc(const PaintDc&) = delete;
  PaintDc& operator=(const PaintDc&) = delete;
  [[nodiscard]] HDC Get() const noexcept { return dc_; }
  [[nodiscard]] const RECT& Dirty() const noexcept { return paint_.rcPaint; }  // empty with a given context

 private:
  PAINTSTRUCT paint_ = {};
  HWND window_;
  HDC dc_;
  bool isBegun_;
};

// A context's clipping, origins and selected objects come back as they were.
class SavedDc {
 public:
  explicit SavedDc(HDC dc) noexcept : dc_(dc), state_(SaveDC(dc)) {}
  ~SavedDc() { RestoreDC(dc_, state_); }
  SavedDc(const SavedDc&) = delete;
  SavedDc& operator=(const SavedDc&) = delete;

 private:
  HDC dc_;
  int state_;
};

// What is drawn at 0, 0 lands at `left`, `top`.
class ShiftedOrigin {
 public:
  ShiftedOrigin(HDC dc, int left, int top) noexcept : dc_(dc) { SetWindowOrgEx(dc, -left, -top, &former_); }
  ~ShiftedOrigin() { SetWindowOrgEx(dc_, former_.x, former_.y, nullptr); }
  ShiftedOrigin(const ShiftedOrigin&) = delete;
  ShiftedOrigin& operator=(const ShiftedOrigin&) = delete;

 private:
  HDC dc_;
  POINT former_ = {};
};

// Marlux 3. Owners of GDI objects and menus: freed when they go out of scope.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

struct GdiDeleter {
  void operator()(void* object) const noexcept { DeleteObject(object); }
};
struct MenuDeleter {
  void operator()(HMENU menu) const noexcept { DestroyMenu(menu); }
};

using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiDeleter>;
using BrushHandle = std::unique_ptr<std::remove_pointer_t<HBRUSH>, GdiDeleter>;
using PenHandle = std::unique_ptr<std::remove_pointer_t<HPEN>, GdiDeleter>;
using RegionHandle = std::unique_ptr<std::remove_pointer_t<HRGN>, GdiDeleter>;
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiDeleter>;
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

#include "gallery/Picture.h"

Picture::Picture(HWND window, bool whole) {
  RECT area = {};
  if (whole) {
    GetWindowRect(window, &area);
    OffsetRect(&area, -area.left, -area.top);
  } else {
    GetClientRect(window, &area);
  }
  if (IsRectEmpty(&area)) return;
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN | (whole ? RDW_FRAME : 0));
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof(info.bmiHeader), area.right, -area.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* pixels = nullptr;
  bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
  if (!bitmap_) return;
  pixels_ = static_cast<const uint32_t*>(pixels);
  size_ = {area.right, area.bottom};
  // Such a context does not leave out the window's children.
  const WindowDc screen(window, GetDCEx(window, nullptr, DCX_CACHE | (whole ? DCX_WINDOW : 0)));
  const MemoryDc memory(CreateCompatibleDC(screen.Get()));
  const Selected selected(memory.get(), bitmap_.get());
  BitBlt(memory.get(), 0, 0, size_.cx, size_.cy, screen.Get(), 0, 0, SRCCOPY);
  GdiFlush();
}

bool Picture::IsPlain() const noexcept {
  for (size_t i = 1; i < Count(); ++i) {
    if (Pixel(i) != Pixel(0)) return false;
  }
  return true;
}

bool Picture::LooksAs(const Picture& other) const noexcept {
  if (size_.cx != other.size_.cx || size_.cy != other.size_.cy) return false;
  for (size_t i = 0; i < Count(); ++i) {
    if (Pixel(i) != other.Pixel(i)) return false;
  }
  return true;
}

void Picture::Paint(HDC dc, int left, int top) const {
  if (!bitmap_) return;
  const MemoryDc memory(CreateCompatibleDC(dc));
  const Selected selected(memory.get(), bitmap_.get());
  BitBlt(dc, left, top, size_.cx, size_.cy, memory.get(), 0, 0, SRCCOPY);
}

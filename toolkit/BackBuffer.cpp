#include "toolkit/BackBuffer.h"

#include <algorithm>

bool BackBuffer::Resize(HWND window, int width, int height) {
  Free();
  const HDC screen = GetDC(window);
  if (!screen) return false;
  dc_ = CreateCompatibleDC(screen);
  bitmap_ = CreateCompatibleBitmap(screen, std::max(width, 1), std::max(height, 1));
  ReleaseDC(window, screen);
  if (!dc_ || !bitmap_) {
    Free();
    return false;
  }
  original_ = SelectObject(dc_, bitmap_);
  return true;
}

void BackBuffer::Free() noexcept {
  if (dc_ && original_) SelectObject(dc_, original_);
  if (dc_) DeleteDC(dc_);
  if (bitmap_) DeleteObject(bitmap_);
  dc_ = nullptr;
  bitmap_ = nullptr;
  original_ = nullptr;
}

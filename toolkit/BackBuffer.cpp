#include "toolkit/BackBuffer.h"

#include <algorithm>

bool BackBuffer::Resize(HWND window, int width, int height) {
  Free();
  const WindowDc screen(window);
  if (!screen.Get()) return false;
  dc_.reset(CreateCompatibleDC(screen.Get()));
  bitmap_.reset(CreateCompatibleBitmap(screen.Get(), std::max(width, 1), std::max(height, 1)));
  if (!dc_ || !bitmap_) {
    Free();
    return false;
  }
  original_ = SelectObject(dc_.get(), bitmap_.get());
  return true;
}

void BackBuffer::Free() noexcept {
  if (original_) SelectObject(dc_.get(), original_);
  original_ = nullptr;
  dc_.reset();
  bitmap_.reset();
}

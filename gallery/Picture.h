// Marlux 3. What a window looked like at a moment: a copy of its pixels.
#pragma once

#include <windows.h>

#include "toolkit/GdiHandle.h"

class Picture {
 public:
  Picture() = default;
  // Of the client area, or of the whole window with its frame. What is not painted yet is painted first.
  explicit Picture(HWND window, bool whole = false);

  [[nodiscard]] SIZE Size() const noexcept { return size_; }
  [[nodiscard]] bool IsPlain() const noexcept;                      // of one colour, or empty
  [[nodiscard]] bool LooksAs(const Picture& other) const noexcept;  // of the same size, too
  void Paint(HDC dc, int left, int top) const;

 private:
  [[nodiscard]] size_t Count() const noexcept { return static_cast<size_t>(size_.cx) * static_cast<size_t>(size_.cy); }
  [[nodiscard]] uint32_t Pixel(size_t index) const noexcept { return pixels_[index] & 0xFFFFFFu; }

  BitmapHandle bitmap_;
  const uint32_t* pixels_ = nullptr;  // the bitmap's own; the highest byte means nothing
  SIZE size_ = {};
};

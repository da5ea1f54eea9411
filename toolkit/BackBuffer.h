// Marlux 3. The memory picture that a double-buffered window is drawn into before it is copied to the screen.
#pragma once

#include "toolkit/GdiHandle.h"

class BackBuffer {
 public:
  BackBuffer() noexcept = default;
  ~BackBuffer() { Free(); }
  BackBuffer(const BackBuffer&) = delete;
  BackBuffer& operator=(const BackBuffer&) = delete;

  // Pixels; at least one in each direction. False, with no picture, when the system has no room for it.
  bool Resize(HWND window, int width, int height);
  [[nodiscard]] HDC Dc() const noexcept { return dc_.get(); }  // null when there is no picture

 private:
  void Free() noexcept;

  MemoryDc dc_;
  BitmapHandle bitmap_;
  HGDIOBJ original_ = nullptr;  // the bitmap that came with the context; selected back before it goes
};

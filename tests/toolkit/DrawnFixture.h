// Marlux 3. What the tests of all drawn controls share: a window and a picture of it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "tests/toolkit/InputWindow.h"

class DrawnFixture : public testing::Test {
 protected:
  ~DrawnFixture() override {
    if (window_) window_->Destroy();
  }

  // One below the other.
  template <class Control>
  Control& Place(Control& control) {
    const SIZE size = control.PreferredSize();
    control.SetBounds(10, top_, size.cx, size.cy);
    top_ += 40;
    return control;
  }
  static void Click(const TmyControl& control) {
    Input::Click(*control.GetParent(), control.Bounds().left + 3, control.Bounds().top + 3);
  }
  void Key(uint32_t key, LPARAM flags = 1) const { Input::Key(*window_, key, 0, flags); }
  void Focus(TmyControl& control) const {
    window_->FocusDrawn(&control);
    SetFocus(window_->Handle());
    EXPECT_TRUE(control.HasFocus()) << "no focus: is there a display?";
  }

  // Shows each pixel of the control, with what is drawn around it, to `see`.
  template <class See>
  void ForPixels(const TmyControl& control, See see) const {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const BitmapHandle bitmap(CreateCompatibleBitmap(screen, 640, 480));
    ReleaseDC(nullptr, screen);
    {
      const Selected selected(dc, bitmap.get());
      SendMessageA(window_->Handle(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
      SendMessageA(window_->Handle(), WM_PAINT, reinterpret_cast<WPARAM>(dc), 0);
      const RECT& place = control.Bounds();
      for (int y = place.top; y < place.bottom; ++y) {
        for (int x = place.left; x < place.right; ++x) see(GetPixel(dc, x, y));
      }
    }
    DeleteDC(dc);
  }
  // How many pixels have a colour.
  int Pixels(const TmyControl& control, COLORREF color) const {
    int count = 0;
    ForPixels(control, [&](COLORREF pixel) { count += pixel == color ? 1 : 0; });
    return count;
  }
  // How far the text stands out from the window's background, 0 for nothing drawn. Smooth text has its own colour at
  // hardly any pixel, and in which font is the machine's choice.
  int Contrast(const TmyControl& control) const {
    const int background = GetGValue(window_->BackgroundColor());
    int most = 0;
    ForPixels(control, [&](COLORREF pixel) { most = std::max(most, std::abs(GetGValue(pixel) - background)); });
    return most;
  }
  int Accent(const TmyControl& control) const { return Pixels(control, TmyApplication::Get().Theme().Color().accent); }

  InputWindow* window_ = new InputWindow;  // deleted by its window
  int top_ = 10;
};

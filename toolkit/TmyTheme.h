// Marlux 3. Colours, fonts and sizes of everything that the toolkit draws. Light and flat; in the system's High
// Contrast mode the system's own colours. All sizes follow the system's message font, so larger text cuts nothing.
#pragma once

#include <windows.h>

#include <cstddef>

#include <string_view>

#include "toolkit/GdiHandle.h"

class TmyTheme {
 public:
  enum class Font { kMessage, kBold };

  struct Colors {
    COLORREF surface, field, alternateRow, line, text, secondary, disabled;
    COLORREF accent, accentText, marked, header, hot, pressed, record;
    bool operator==(const Colors&) const = default;
  };

  TmyTheme() { Reload(); }
  // Asks the system again. True when fonts or colours are others now: fonts handed out before are gone then.
  bool Reload();

  // Text of another size than the system's, in per cent of it, for looking at how everything grows. Windows that exist
  // already must be told by ThemeChanged.
  void SetTextPercent(int percent);

  [[nodiscard]] const Colors& Color() const noexcept { return colors_; }
  [[nodiscard]] HFONT Get(Font font) const noexcept;  // owned by the theme
  [[nodiscard]] bool IsHighContrast() const noexcept { return highContrast_; }

  // Pixels, from the message font.
  [[nodiscard]] int TextHeight() const noexcept { return textHeight_; }
  [[nodiscard]] int FieldHeight() const noexcept { return textHeight_ + 10; }
  [[nodiscard]] int RowHeight() const noexcept { return textHeight_ + 4; }
  [[nodiscard]] int Step() const noexcept { return Scaled(8); }  // the rhythm of all distances
  // A length that was chosen at 96 dpi with a 15 pixel high font.
  [[nodiscard]] int Scaled(int pixels) const noexcept { return MulDiv(pixels, textHeight_, 15); }
  [[nodiscard]] int TextWidth(std::string_view text, Font font = Font::kMessage) const;

 private:
  bool LoadColors();  // true: changed
  bool LoadFonts();

  Colors colors_ = {};
  FontHandle message_;
  FontHandle bold_;
  LOGFONTA logFont_ = {};  // what the fonts were made from
  bool highContrast_ = false;
  int textHeight_ = 15;
  int textPercent_ = 100;
};

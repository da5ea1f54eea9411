#include "toolkit/TmyTheme.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr TmyTheme::Colors kLight = {
    .surface = RGB(0xF4, 0xF5, 0xF7),
    .field = RGB(0xFF, 0xFF, 0xFF),
    .alternateRow = RGB(0xF7, 0xF9, 0xFB),
    .line = RGB(0xD5, 0xDA, 0xE0),
    .text = RGB(0x1B, 0x1F, 0x24),
    .secondary = RGB(0x57, 0x60, 0x6A),
    .disabled = RGB(0x9A, 0xA3, 0xAD),
    .accent = RGB(0x0B, 0x6B, 0xCB),
    .accentText = RGB(0xFF, 0xFF, 0xFF),
    .marked = RGB(0xD7, 0xE8, 0xFB),
    .header = RGB(0xEC, 0xEF, 0xF3),
    .hot = RGB(0xE9, 0xF1, 0xFA),
    .pressed = RGB(0xCF, 0xE2, 0xF7),
    .record = RGB(0xC6, 0x28, 0x28),
};

TmyTheme::Colors SystemColors() noexcept {
  return {
      .surface = GetSysColor(COLOR_WINDOW),
      .field = GetSysColor(COLOR_WINDOW),
      .alternateRow = GetSysColor(COLOR_WINDOW),
      .line = GetSysColor(COLOR_WINDOWTEXT),
      .text = GetSysColor(COLOR_WINDOWTEXT),
      .secondary = GetSysColor(COLOR_WINDOWTEXT),
      .disabled = GetSysColor(COLOR_GRAYTEXT),
      .accent = GetSysColor(COLOR_HIGHLIGHT),
      .accentText = GetSysColor(COLOR_HIGHLIGHTTEXT),
      .marked = GetSysColor(COLOR_BTNFACE),
      .header = GetSysColor(COLOR_BTNFACE),
      .hot = GetSysColor(COLOR_BTNFACE),
      .pressed = GetSysColor(COLOR_BTNFACE),
      .record = GetSysColor(COLOR_HOTLIGHT),
  };
}

}  // namespace

bool TmyTheme::Reload() {
  const bool colors = LoadColors();
  const bool fonts = LoadFonts();
  return colors || fonts;
}

void TmyTheme::SetTextPercent(int percent) {
  textPercent_ = percent;
  LoadFonts();
}

bool TmyTheme::LoadColors() {
  HIGHCONTRASTA contrast = {};
  contrast.cbSize = sizeof(contrast);
  SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0);
  highContrast_ = (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
  const Colors before = colors_;
  colors_ = highContrast_ ? SystemColors() : kLight;
  return !(colors_ == before);
}

bool TmyTheme::LoadFonts() {
  NONCLIENTMETRICSA metrics = {};
  // Without the last field, which older systems do not know; they would refuse the whole call.
  metrics.cbSize = offsetof(NONCLIENTMETRICSA, iPaddedBorderWidth);
  const bool isTold = SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0) != FALSE;
  if (!isTold && message_) return false;  // what is shown stays so
  LOGFONTA font = metrics.lfMessageFont;
  font.lfHeight = MulDiv(font.lfHeight, textPercent_, 100);
  if (message_ && bold_ && std::memcmp(&font, &logFont_, sizeof(font)) == 0) return false;
  logFont_ = font;
  message_.reset(CreateFontIndirectA(&font));
  font.lfWeight = FW_BOLD;
  bold_.reset(CreateFontIndirectA(&font));
  const WindowDc screen(nullptr);
  const Selected selected(screen.Get(), Get(Font::kMessage));
  TEXTMETRICA text = {};
  GetTextMetricsA(screen.Get(), &text);
  textHeight_ = std::max<int>(text.tmHeight, 8);
  return true;
}

// A font that the system refused is replaced by one that always exists.
HFONT TmyTheme::Get(Font font) const noexcept {
  const FontHandle& wanted = font == Font::kBold ? bold_ : message_;
  return wanted ? wanted.get() : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

int TmyTheme::TextWidth(std::string_view text, Font font) const {
  const WindowDc screen(nullptr);
  const Selected selected(screen.Get(), Get(font));
  SIZE size = {};
  GetTextExtentPoint32A(screen.Get(), text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

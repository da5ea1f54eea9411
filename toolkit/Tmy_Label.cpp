#include "toolkit/Tmy_Label.h"

#include <algorithm>
#include <string_view>

#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

UINT FormatOf(Tmy_Label::Align align) noexcept {
  if (align == Tmy_Label::Align::kCenter) return DT_CENTER;
  return align == Tmy_Label::Align::kRight ? DT_RIGHT : DT_LEFT;
}

constexpr std::string_view kLineEnd = "\r\n";

// Takes the first line off the text.
std::string_view TakeLine(std::string_view& text) noexcept {
  const size_t end = text.find(kLineEnd);
  const std::string_view line = text.substr(0, end);
  text = end == std::string_view::npos ? std::string_view() : text.substr(end + kLineEnd.size());
  return line;
}

}  // namespace

void Tmy_Label::SetText(const TmyString& text) {
  if (text == text_) return;
  text_ = text;
  Repaint();
}

void Tmy_Label::Overwrite(std::string_view text) {
  if (text == text_.View()) return;
  if (text.size() != text_.Length()) text_ = TmyString(text);
  for (uint32_t i = 0; i < text_.Length(); ++i) *text_.WritableAt(i) = text[i];
  Repaint();
}

void Tmy_Label::SetSecondary(bool secondary) {
  secondary_ = secondary;
  Repaint();
}

SIZE Tmy_Label::PreferredSize() const {
  std::string_view text = text_.View();
  SIZE size = {};
  do {
    size.cx = std::max<LONG>(size.cx, Theme().TextWidth(TakeLine(text)));
    size.cy += Theme().TextHeight();
  } while (!text.empty());
  return size;
}

// A single line stands in the middle of its height, several begin at the top.
void Tmy_Label::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const COLORREF enabled = secondary_ ? color.secondary : color.text;
  std::string_view text = text_.View();
  const bool isSingle = text.find(kLineEnd) == std::string_view::npos;
  const int height = isSingle ? Height() : Theme().TextHeight();
  for (int top = 0; !text.empty(); top += height) {
    ThemeDraw::Text(dc, {0, top, Width(), top + height}, TakeLine(text), IsEnabled() ? enabled : color.disabled,
                    Theme().Get(TmyTheme::Font::kMessage), FormatOf(align_));
  }
}

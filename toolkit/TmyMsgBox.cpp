#include "toolkit/TmyMsgBox.h"

#include <algorithm>

#include "toolkit/TmyApplication.h"

namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_TABSTOP;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr int kMostTextWidth = 420;  // at 96 dpi
constexpr int kLeastTextWidth = 180;

int Margin() {
  return 2 * Theme().Step();
}
int ButtonHeight() {
  return Theme().FieldHeight();
}

}  // namespace

TmyMsgBox::TmyMsgBox(TmyComponent& owner, const TmyString& title, const TmyString& text,
                     std::initializer_list<const char*> buttons)
    : TmyDialog(title.Chars(), kStyle, kExtendedStyle, owner), text_(new TmyLabel(*this, text)) {
  for (const char* caption : buttons) {
    auto& button = buttons_.emplace_back(std::make_unique<Tmy_Btn>(*this, caption));
    button->clicked.Bind<&TmyMsgBox::Clicked>(this);
  }
  if (!buttons_.empty()) buttons_.front()->SetDefault(true);
  FitSize(owner);
}

int TmyMsgBox::ButtonsWidth() const {
  int width = 0;
  for (const auto& button : buttons_) width += (width > 0 ? Theme().Step() : 0) + button->PreferredWidth();
  return width;
}

void TmyMsgBox::FitSize(const TmyComponent& around) {
  const SIZE text = text_->SizeFor(Theme().Scaled(kMostTextWidth));
  const int inner = std::max({static_cast<int>(text.cx), ButtonsWidth(), Theme().Scaled(kLeastTextWidth)});
  RECT frame = {0, 0, inner + 2 * Margin(), static_cast<int>(text.cy) + ButtonHeight() + 3 * Margin()};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  PlaceCentred(around,
               {(frame.right - frame.left) * widthPercent_ / 100, (frame.bottom - frame.top) * heightPercent_ / 100});
}

void TmyMsgBox::ThemeChanged() {
  TmyDialog::ThemeChanged();
  FitSize(*this);
}

void TmyMsgBox::Enlarge(int widthPercent, int heightPercent) {
  widthPercent_ = widthPercent;
  heightPercent_ = heightPercent;
  FitSize(*GetParent());
}

// Buttons at the right of the last line.
void TmyMsgBox::Realign() {
  text_->SetBounds(Margin(), Margin(), ClientWidth() - 2 * Margin(),
                   std::max(0, ClientHeight() - 3 * Margin() - ButtonHeight()));
  int right = ClientWidth() - Margin();
  const int top = ClientHeight() - Margin() - ButtonHeight();
  for (auto button = buttons_.rbegin(); button != buttons_.rend(); ++button) {
    const int width = (*button)->PreferredWidth();
    (*button)->SetBounds(right - width, top, width, ButtonHeight());
    right -= width + Theme().Step();
  }
}

void TmyMsgBox::Clicked(Tmy_Btn& button) {
  for (size_t i = 0; i < buttons_.size(); ++i) {
    if (buttons_[i].get() == &button) EndModal(static_cast<int>(i) + 1);
  }
}

void TmyMsgBox::Confirm() {
  if (!buttons_.empty()) buttons_.front()->Press();
}

void TmyMsgBox::Escape() {
  SendMessageA(Handle(), WM_CLOSE, 0, 0);
}

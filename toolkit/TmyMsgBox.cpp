#include "toolkit/TmyMsgBox.h"

#include <algorithm>

#include "toolkit/TabOrder.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_TABSTOP;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

const TmyTheme& Theme() {
  return TmyApplication::Get().Theme();
}
int Margin() {
  return 2 * Theme().Step();
}
int ButtonHeight() {
  return Theme().FieldHeight();
}

}  // namespace

TmyMsgBox::TmyMsgBox(TmyComponent* owner, const TmyString& title, const TmyString& text,
                     std::initializer_list<const char*> buttons)
    : TmyComponent(title.Chars(), kStyle, kExtendedStyle, -1, -1, 100, 100, owner), text_(new TmyLabel(*this, text)) {
  SetDoubleBuffered(true);
  for (const char* caption : buttons) {
    auto& button = buttons_.emplace_back(std::make_unique<Tmy_Btn>(*this, caption));
    button->clicked.Bind<&TmyMsgBox::Clicked>(this);
  }
  if (!buttons_.empty()) buttons_.front()->SetDefault(true);
  LayOut(owner);
}

int TmyMsgBox::ButtonsWidth() const {
  int width = 0;
  for (const auto& button : buttons_) width += (width > 0 ? Theme().Step() : 0) + button->PreferredWidth();
  return width;
}

void TmyMsgBox::LayOut(const TmyComponent* owner) {
  const SIZE text = text_->SizeFor(Theme().Scaled(420));
  const int inner = std::max({static_cast<int>(text.cx), ButtonsWidth(), Theme().Scaled(180)});
  RECT frame = {0, 0, inner + 2 * Margin(), static_cast<int>(text.cy) + ButtonHeight() + 3 * Margin()};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  const int width = frame.right - frame.left;
  const int height = frame.bottom - frame.top;
  RECT around = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  if (owner && owner->IsVisible()) GetWindowRect(owner->Handle(), &around);
  SetBounds(std::max(0L, (around.left + around.right - width) / 2),
            std::max(0L, (around.top + around.bottom - height) / 2), width, height);
  Realign();
}

void TmyMsgBox::ResizeCentred(int width, int height) {
  SetBounds(Bounds().left - (width - Width()) / 2, Bounds().top - (height - Height()) / 2, width, height);
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

void TmyMsgBox::FocusChanged(bool focused) {
  if (focused && !FocusedControl()) TabOrder(*this).First();
  TmyComponent::FocusChanged(focused);
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

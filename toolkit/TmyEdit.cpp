#include "toolkit/TmyEdit.h"

#include <algorithm>
#include <new>

#include "toolkit/ClipboardText.h"
#include "toolkit/ListKeys.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr int kPadding = 7;  // between the outer edge and the text, at 96 dpi
constexpr int kCaretRoom = 1;

int Padding() {
  return Theme().Scaled(kPadding);
}

}  // namespace

// The system's control reports every change to its parent, also those of the program.
class TmyEdit::Quiet {
 public:
  explicit Quiet(TmyEdit& edit) noexcept : edit_(edit) { ++edit_.quiet_; }
  ~Quiet() { --edit_.quiet_; }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  TmyEdit& edit_;
};

TmyEdit::TmyEdit(TmyComponent& parent, Align align)
    : TmyComponent("", WS_CHILD | WS_TABSTOP, 0, 0, 0, 0, 0, &parent), align_(align) {
  const DWORD style = WS_CHILD | WS_TABSTOP | WS_CLIPSIBLINGS | static_cast<DWORD>(ES_AUTOHSCROLL) |
                      static_cast<DWORD>(align == Align::kRight ? ES_RIGHT : ES_LEFT);
  const HWND edit = CreateWindowExA(0, "EDIT", "", style, 0, 0, 0, 0, parent.Handle(), nullptr,
                                    TmyApplication::Get().Module(), nullptr);
  if (!edit) throw std::bad_alloc();
  Adopt(edit);
  ApplyTheme();
}

TmyString TmyEdit::Text() const {
  if (!IsAlive()) return {};
  const int length = GetWindowTextLengthA(Handle());
  std::string text(static_cast<size_t>(length) + 1, '\0');
  text.resize(static_cast<size_t>(GetWindowTextA(Handle(), text.data(), length + 1)));
  return TmyString(text);
}

void TmyEdit::SetText(const TmyString& text) {
  dirty_ = false;
  if (Text() == text) return;  // the caret and what can be undone stay
  const Quiet quiet(*this);
  SetWindowTextA(Handle(), text.Chars());
}

void TmyEdit::SetMaximumLength(uint32_t characters) {
  SendMessageA(Handle(), EM_LIMITTEXT, characters, 0);
}

void TmyEdit::SelectAll() {
  Select(0, -1);
}

int TmyEdit::PreferredWidth(std::string_view sample) const {
  return Theme().TextWidth(sample) + 2 * Padding() + kCaretRoom;
}

TmyEdit::Selection TmyEdit::Selected() const {
  DWORD begin = 0;
  DWORD end = 0;
  SendMessageA(Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
  return {static_cast<int>(begin), static_cast<int>(end)};
}

void TmyEdit::Select(int begin, int end) {
  SendMessageA(Handle(), EM_SETSEL, static_cast<WPARAM>(begin), end);
}

void TmyEdit::ReplaceSelection(const TmyString& text) {
  SendMessageA(Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.Chars()));
}

void TmyEdit::ExchangeText(const TmyString& text, Selection selection) {
  if (Text() != text) {
    const Quiet quiet(*this);
    SelectAll();
    ReplaceSelection(text);
  }
  Select(selection.begin, selection.end);
}

void TmyEdit::SetTextByUser(const TmyString& text) {
  if (Text() == text) return SelectAll();
  ExchangeText(text, {0, -1});
  RaiseChanged();
}

void TmyEdit::RaiseChanged() {
  dirty_ = true;
  TextChanged();
  changed(*this);
}

LRESULT TmyEdit::Command(WPARAM wParam) {
  if (HIWORD(wParam) == EN_CHANGE && quiet_ == 0) RaiseChanged();
  return 0;
}

void TmyEdit::Commit(bool always) {
  const bool raises = always || dirty_;
  Normalize();
  dirty_ = false;
  if (raises) committed(*this);
}

LRESULT TmyEdit::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCALCSIZE:  // both forms begin with the rectangle
      ShrinkToText(*reinterpret_cast<RECT*>(lParam));
      return 0;
    case WM_NCPAINT:
      PaintFrame();
      return 0;
    case WM_NCHITTEST:
      return HTCLIENT;  // a click on the padding is one into the text
    case WM_PAINT:
      if (!IsEnabled()) {
        PaintDisabled(reinterpret_cast<HDC>(wParam));
        return 0;
      }
      return TmyWindowBase::WndProc(message, wParam, lParam);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
      TmyApplication::Get().HideToolTip();
      return TmyWindowBase::WndProc(message, wParam, lParam);
    case WM_ERASEBKGND:
    case WM_SETCURSOR:
    case WM_CONTEXTMENU:
      return TmyWindowBase::WndProc(message, wParam, lParam);
    case WM_PASTE:
      if (PasteText(ClipboardText(Handle()))) return 0;
      break;
    default:
      break;
  }
  return TmyComponent::WndProc(message, wParam, lParam);
}

bool TmyEdit::KeyDown(uint32_t key, LPARAM flags) {
  if (key == VK_ESCAPE) return true;  // the dispatcher has sent it up
  if (key == VK_RETURN && !ListKeys::IsWithAlt(flags)) {
    Commit(true);
    if (IsAlive()) PostMessageA(Handle(), kMsgConfirm, 0, 0);
    return true;
  }
  if (key == 'A' && GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0) {
    SelectAll();
    return true;
  }
  return TmyComponent::KeyDown(key, flags);
}

// The system's control beeps at the characters of keys that are done already, and shows some of them.
void TmyEdit::Char(char& character, LPARAM) {
  constexpr std::string_view kOfDoneKeys = "\t\r\n\x1b\x01\x7f";
  if (kOfDoneKeys.find(character) != std::string_view::npos) character = 0;
}

void TmyEdit::FocusChanged(bool focused) {
  focused_ = focused;
  Repaint();
  // A field that goes together with its parent has nobody to tell any more.
  if (!focused && GetParent()) Commit(false);
}

// Dialogs and Tab come this way. When the top-level window hands the focus back, because it became the active one
// again, the selection stays as it was left.
void TmyEdit::TakeFocus() {
  const bool isReturn = ::GetFocus() == TopLevel()->Handle() && TmyApplication::Get().FocusOf(*TopLevel()) == this;
  TmyComponent::TakeFocus();
  if (!isReturn && IsAlive()) SelectAll();
}

void TmyEdit::EnabledChanged() {
  ApplyColors();
  Repaint();
}

void TmyEdit::ThemeChanged() {
  ApplyTheme();
}

void TmyEdit::ApplyColors() noexcept {
  const TmyTheme::Colors& color = Theme().Color();
  SetColors(IsEnabled() ? color.field : color.surface, color.text, color.disabled);
}

void TmyEdit::ApplyTheme() {
  ApplyColors();
  SendMessageA(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
  SendMessageA(Handle(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
  constexpr UINT kFrameOnly = SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
  SetWindowPos(Handle(), nullptr, 0, 0, 0, 0, kFrameOnly);
  Repaint();
}

void TmyEdit::Repaint() {
  if (IsAlive()) RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ERASE);
}

// The system's control writes at the top of its client area: that is made as high as one line, in the middle.
void TmyEdit::ShrinkToText(RECT& area) const noexcept {
  const int height = static_cast<int>(area.bottom - area.top);
  const int width = static_cast<int>(area.right - area.left);
  const int lineHeight = std::clamp(height - 2, 0, Theme().TextHeight());
  const int inset = std::min(Padding(), width / 2);
  area.top += (height - lineHeight) / 2;
  area.bottom = area.top + lineHeight;
  area.left += inset;
  area.right = std::max(area.left, area.right - std::max(0, inset - kCaretRoom));
}

void TmyEdit::PaintFrame() {
  RECT all = {};
  RECT client = {};
  GetWindowRect(Handle(), &all);
  GetClientRect(Handle(), &client);
  MapWindowPoints(Handle(), nullptr, reinterpret_cast<POINT*>(&client), 2);
  OffsetRect(&client, -all.left, -all.top);
  OffsetRect(&all, -all.left, -all.top);
  const WindowDc dc(Handle(), GetWindowDC(Handle()));
  if (!dc.Get()) return;
  ExcludeClipRect(dc.Get(), client.left, client.top, client.right, client.bottom);
  ThemeDraw::Fill(dc.Get(), all, BackgroundColor());
  ThemeDraw::Frame(dc.Get(), all, focused_ && IsEnabled() ? Theme().Color().accent : Theme().Color().line);
}

// The system's control would write in the system's grey.
void TmyEdit::PaintDisabled(HDC given) {
  const PaintDc dc(Handle(), given);
  if (!dc.Get()) return;
  const RECT area = {0, 0, ClientWidth(), ClientHeight()};
  ThemeDraw::Fill(dc.Get(), area, BackgroundColor());
  const RECT place = {0, 0, area.right - (align_ == Align::kRight ? 0 : kCaretRoom), area.bottom};
  ThemeDraw::Text(dc.Get(), place, Text().View(), DisabledTextColor(), Font(),
                  align_ == Align::kRight ? DT_RIGHT : DT_LEFT);
}

#include "toolkit/TmyToolTip.h"

#include <commctrl.h>

#include "foundation/Clock.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr uint32_t kShownMilliseconds = 10000;

// The size that also older versions of the control accept.
TOOLINFOA Tool(char* text) noexcept {
  TOOLINFOA tool = {};
  tool.cbSize = TTTOOLINFOA_V1_SIZE;
  tool.uFlags = TTF_TRACK | TTF_ABSOLUTE;
  tool.lpszText = text;
  return tool;
}

// A dialog may have come up since the cursor was seen over the control: tips are for what can be clicked.
bool IsCovered(const POINT& cursor) noexcept {
  const HWND under = WindowFromPoint(cursor);
  return !TmyApplication::Get().WindowOf(under) || !IsWindowEnabled(GetAncestor(under, GA_ROOT));
}

}  // namespace

TmyToolTip::~TmyToolTip() {
  if (handle_) DestroyWindow(handle_);
}

bool TmyToolTip::Create() noexcept {
  if (handle_ && IsWindow(handle_)) return true;  // a program that ends others may have closed it
  shown_ = false;
  INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  handle_ = CreateWindowExA(WS_EX_TOPMOST | WS_EX_NOACTIVATE, TOOLTIPS_CLASSA, nullptr,
                            WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, nullptr, nullptr,
                            TmyApplication::Get().Module(), nullptr);
  if (!handle_) return false;
  char nothing[] = "";
  TOOLINFOA tool = Tool(nothing);
  SendMessageA(handle_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageA(handle_, TTM_SETMAXTIPWIDTH, 0, Theme().Scaled(320));
  return true;
}

void TmyToolTip::Show(const TmyControl& control, const char* text) {
  POINT at = {};
  GetCursorPos(&at);
  if (IsCovered(at) || !Create() || (shown_ && text_ == text)) return;
  text_ = text;
  TOOLINFOA tool = Tool(text_.WritableAt(0));
  SendMessageA(handle_, TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageA(handle_, TTM_TRACKPOSITION, 0, MAKELPARAM(at.x + 4, at.y + GetSystemMetrics(SM_CYCURSOR) / 2 + 4));
  SendMessageA(handle_, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
  shown_ = true;
  since_ = Clock::Ticks();
  POINT origin = {};
  control.GetScreenOrigin(origin);
  area_ = {origin.x, origin.y, origin.x + control.Width(), origin.y + control.Height()};
}

void TmyToolTip::Watch() noexcept {
  if (!shown_) return;
  POINT at = {};
  GetCursorPos(&at);
  if (Clock::Ticks() - since_ > kShownMilliseconds || !PtInRect(&area_, at)) Hide();
}

void TmyToolTip::Hide() noexcept {
  if (!handle_ || !shown_) return;
  shown_ = false;
  TOOLINFOA tool = Tool(nullptr);
  SendMessageA(handle_, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
}

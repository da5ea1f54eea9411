#include "toolkit/TmyDropWindow.h"

#include <windowsx.h>

#include "toolkit/CentredPlace.h"

namespace {

constexpr uintptr_t kWatchTimer = 1;
constexpr UINT kWatchMilliseconds = 50;

RECT WindowArea(const TmyComponent& window) {
  RECT area = {};
  GetWindowRect(window.Handle(), &area);
  return area;
}

bool IsButtonDown() {
  return GetAsyncKeyState(VK_LBUTTON) < 0 || GetAsyncKeyState(VK_RBUTTON) < 0 || GetAsyncKeyState(VK_MBUTTON) < 0;
}

// The capture took a click from the window that the user meant; here it gets it. Windows of other threads were never
// robbed of theirs.
void PassClickOn(UINT message, WPARAM keys, POINT screen) {
  const HWND target = WindowFromPoint(screen);
  if (!target || GetWindowThreadProcessId(target, nullptr) != GetCurrentThreadId()) return;
  if (!IsWindowEnabled(GetAncestor(target, GA_ROOT))) return;  // a dialog makes it wait
  const LPARAM place = MAKELPARAM(screen.x, screen.y);
  const LRESULT part = SendMessageA(target, WM_NCHITTEST, 0, place);
  if (!IsWindow(target)) return;
  const HWND top = GetAncestor(target, GA_ROOT);
  if (top != GetActiveWindow()) SetForegroundWindow(top);
  POINT client = screen;
  ScreenToClient(target, &client);
  if (part == HTCLIENT) {
    PostMessageA(target, message, keys, MAKELPARAM(client.x, client.y));
  } else {
    const UINT outside = message - WM_LBUTTONDOWN + WM_NCLBUTTONDOWN;  // both families are numbered alike
    PostMessageA(target, outside, static_cast<WPARAM>(part), place);
  }
}

}  // namespace

TmyDropWindow::TmyDropWindow(TmyComponent& field)
    : TmyComponent("", WS_POPUP | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, 0, 0, 0, 0, &field),
      fieldAt_(WindowArea(field)) {}

void TmyDropWindow::OpenAt(const RECT& place) {
  SetBounds(place.left, place.top, place.right - place.left, place.bottom - place.top);
  SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  SetCapture(Handle());
  SetTimer(Handle(), kWatchTimer, kWatchMilliseconds, nullptr);
}

RECT TmyDropWindow::WorkArea() const {
  return WorkAreaAt(fieldAt_);
}

bool TmyDropWindow::IsUnderCursor() const {
  POINT cursor = {};
  GetCursorPos(&cursor);
  const RECT area = WindowArea(*this);
  return PtInRect(&area, cursor) != FALSE;
}

LRESULT TmyDropWindow::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_MOUSEACTIVATE) return MA_NOACTIVATE;
  if (message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK && MouseMessage(message, wParam, lParam)) return 0;
  if (message == WM_CAPTURECHANGED) {
    // A child, a scroll bar say, borrows the capture while it is dragged. Anybody else keeps it.
    const auto now = reinterpret_cast<HWND>(lParam);
    if (now != Handle() && !(now && IsChild(Handle(), now))) Dismiss();
    return 0;
  }
  if (message == WM_CANCELMODE) Dismiss();
  return TmyComponent::WndProc(message, wParam, lParam);
}

// While the mouse is captured its messages come here, wherever the cursor is.
bool TmyDropWindow::MouseMessage(UINT message, WPARAM keys, LPARAM at) {
  POINT screen = {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
  ClientToScreen(Handle(), &screen);
  switch (message) {
    case WM_MOUSEMOVE:
      // No WM_SETCURSOR comes while the mouse is captured: the shape would stay that of the window left last.
      ::SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW)));
      CapturedMouse(message, static_cast<uint32_t>(keys), screen);
      return true;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
      ButtonDown(message, keys, screen);
      return true;
    case WM_LBUTTONUP:
      CapturedMouse(message, static_cast<uint32_t>(keys), screen);
      return true;
    default:
      return false;
  }
}

void TmyDropWindow::ButtonDown(UINT message, WPARAM keys, POINT screen) {
  const RECT all = WindowArea(*this);
  if (PtInRect(&fieldAt_, screen)) {
    if (message == WM_LBUTTONDOWN) Dismiss();
  } else if (!PtInRect(&all, screen)) {
    Dismiss();
    PassClickOn(message, keys, screen);
  } else if (message == WM_LBUTTONDOWN) {
    CapturedMouse(message, static_cast<uint32_t>(keys), screen);
  }
}

// What nobody tells us: that the field or a window around it was moved or hidden, and that a child gave the mouse back.
void TmyDropWindow::Timer(uintptr_t id) {
  if (id != kWatchTimer) return;
  const TmyComponent* field = GetParent();
  if (!field || !field->IsAlive()) return;
  const RECT now = WindowArea(*field);
  const bool usable = IsWindowVisible(field->Handle()) && IsWindowEnabled(GetAncestor(field->Handle(), GA_ROOT));
  if (!usable || !EqualRect(&now, &fieldAt_)) {
    Dismiss();
  } else if (!GetCapture() && !IsButtonDown()) {
    SetCapture(Handle());
  }
}

void TmyDropWindow::Dismiss() {
  if (IsAlive()) dismissed();
}

void TmyDropWindow::Destroying() {
  gone();
}

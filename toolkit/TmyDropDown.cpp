#include "toolkit/TmyDropDown.h"

#include <windowsx.h>

#include "toolkit/DropDownPlace.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr uintptr_t kWatchTimer = 1;
constexpr UINT kWatchMilliseconds = 50;

RECT WindowArea(const TmyComponent& window) {
  RECT area = {};
  GetWindowRect(window.Handle(), &area);
  return area;
}

RECT WorkAreaAround(const RECT& place) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoA(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

bool IsButtonDown() {
  return GetAsyncKeyState(VK_LBUTTON) < 0 || GetAsyncKeyState(VK_RBUTTON) < 0 || GetAsyncKeyState(VK_MBUTTON) < 0;
}

// The capture took a click from the window that the user meant; here it gets it. Windows of other threads were never
// robbed of theirs.
void PassClickOn(UINT message, WPARAM keys, POINT screen) {
  const HWND target = WindowFromPoint(screen);
  if (!target || GetWindowThreadProcessId(target, nullptr) != GetCurrentThreadId()) return;
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

TmyDropDown::TmyDropDown(TmyComponent& field, const TmyLBitemList& items, int32_t selection)
    : TmyComponent("", WS_POPUP | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, 0, 0, 0, 0, &field),
      list_(new TmyListBox(*this, WS_VISIBLE)),
      fieldAt_(WindowArea(field)) {
  list_->SetFollowsMouse(true);
  list_->activated.Bind<&TmyDropDown::ListActivated>(this);
  list_->ShowItemsOf(items);
  list_->SetSelection(selection);
}

void TmyDropDown::Open(int textWidth) {
  Place(textWidth);
  list_->ScrollBar().SetPosition(list_->Selection() - list_->VisibleRows() / 2);  // with what comes before and after
  SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  SetCapture(Handle());
  SetTimer(Handle(), kWatchTimer, kWatchMilliseconds, nullptr);
}

void TmyDropDown::ItemsChanged(int textWidth) {
  list_->ItemsChanged();
  Place(textWidth);
}

void TmyDropDown::Place(int textWidth) {
  const RECT place = DropDownPlace::Of(fieldAt_, WorkAreaAround(fieldAt_), list_->Count(),
                                       TmyApplication::Get().Theme().RowHeight(), textWidth, TmyScrollBar::Thickness());
  SetBounds(place.left, place.top, place.right - place.left, place.bottom - place.top);
}

void TmyDropDown::Realign() {
  list_->SetBounds(0, 0, ClientWidth(), ClientHeight());
}

bool TmyDropDown::IsUnderCursor() const {
  POINT cursor = {};
  GetCursorPos(&cursor);
  const RECT area = WindowArea(*this);
  return PtInRect(&area, cursor) != FALSE;
}

TmyDropDown::Area TmyDropDown::AreaAt(POINT screen) const {
  const RECT all = WindowArea(*this);
  if (PtInRect(&fieldAt_, screen)) return Area::kField;
  if (!PtInRect(&all, screen)) return Area::kElsewhere;
  const RECT bar = WindowArea(list_->ScrollBar());
  return list_->ScrollBar().IsVisible() && PtInRect(&bar, screen) ? Area::kScrollBar : Area::kRows;
}

LRESULT TmyDropDown::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_MOUSEACTIVATE) return MA_NOACTIVATE;
  if (message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK && CapturedMouse(message, wParam, lParam)) return 0;
  if (message == WM_CAPTURECHANGED) {
    // The scroll bar borrows the capture while it is dragged. Anybody else keeps it, so the list has to go.
    const auto now = reinterpret_cast<HWND>(lParam);
    if (now != Handle() && !(now && IsChild(Handle(), now))) Dismiss();
    return 0;
  }
  if (message == WM_CANCELMODE) Dismiss();
  return TmyComponent::WndProc(message, wParam, lParam);
}

// While the mouse is captured its messages come here, wherever the cursor is, and go on to the part below it.
bool TmyDropDown::CapturedMouse(UINT message, WPARAM keys, LPARAM at) {
  POINT screen = {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
  ClientToScreen(Handle(), &screen);
  POINT inList = screen;
  ScreenToClient(list_->Handle(), &inList);
  const auto buttons = static_cast<uint32_t>(keys);
  const Area area = AreaAt(screen);
  switch (message) {
    case WM_MOUSEMOVE:
      // No WM_SETCURSOR comes while the mouse is captured: the shape would stay that of the window left last.
      ::SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW)));
      if (area == Area::kScrollBar) {
        list_->ScrollBar().MouseMove(buttons & ~static_cast<uint32_t>(MK_LBUTTON), 0, 0);
      } else {
        SendMessageA(list_->ScrollBar().Handle(), WM_MOUSELEAVE, 0, 0);
        list_->MouseMove(buttons, inList.x, inList.y);
      }
      return true;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
      ButtonDown(message, keys, screen);
      return true;
    case WM_LBUTTONUP:
      if (area == Area::kRows) list_->MouseUp(buttons, inList.x, inList.y);
      return true;
    default:
      return false;
  }
}

void TmyDropDown::ButtonDown(UINT message, WPARAM keys, POINT screen) {
  const Area area = AreaAt(screen);
  if (area == Area::kElsewhere) {
    Dismiss();
    PassClickOn(message, keys, screen);
  } else if (message != WM_LBUTTONDOWN) {
    return;
  } else if (area == Area::kField) {
    Dismiss();
  } else {
    TmyComponent& target = area == Area::kScrollBar ? static_cast<TmyComponent&>(list_->ScrollBar()) : *list_;
    ScreenToClient(target.Handle(), &screen);
    // The scroll bar captures the mouse by itself, which needs the real message; the list must not.
    if (area == Area::kScrollBar) {
      SendMessageA(target.Handle(), message, keys, MAKELPARAM(screen.x, screen.y));
    } else {
      target.MouseDown(static_cast<uint32_t>(keys), screen.x, screen.y);
    }
  }
}

void TmyDropDown::MouseWheel(WPARAM keysAndNotches, TmyComponent*) {
  if (!IsUnderCursor()) {
    Dismiss();
  } else if (list_->ScrollBar().CanScroll()) {  // otherwise the list would hand it up to here again
    list_->MouseWheel(keysAndNotches, list_);
  }
}

// What nobody tells us: that the field or a window around it was moved or hidden, and that the scroll bar gave the
// mouse back.
void TmyDropDown::Timer(uintptr_t id) {
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

void TmyDropDown::Dismiss() {
  if (IsAlive()) dismissed();
}

void TmyDropDown::ListActivated(TmyListBox& list) {
  if (IsAlive()) chosen(list.Selection());
}

void TmyDropDown::Destroying() {
  gone();
}

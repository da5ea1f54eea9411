// TmyComponent's painting and mouse handling: how a window draws its drawn controls and hands the mouse to them.
#include <windowsx.h>

#include <cstdlib>

#include "foundation/Clock.h"
#include "foundation/Trace.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyHoveringMonitor.h"
#include "toolkit/myComponents.h"

TmyComponent::Outcome TmyComponent::PaintMessage(UINT message, WPARAM wParam) {
  const auto given = reinterpret_cast<HDC>(wParam);
  switch (message) {
    case WM_PAINT: {
      const Trace::Scope trace("myComponents.cpp TmyComponent::Paint");
      backBuffer_ && backBuffer_->Dc() && !given ? PaintBuffered() : PaintInto(given);
      return {true, 0};
    }
    case WM_ERASEBKGND:
      if (!backBuffer_ || !backBuffer_->Dc() || backBuffer_->Dc() == given) return {true, EraseBackground(given)};
      return {true, 1};  // the picture covers everything: erasing first would flicker
    default:
      return {SetCursorAtPoint(), 1};
  }
}

void TmyComponent::PaintBuffered() {
  const PaintDc screen(Handle(), nullptr);
  if (!screen.Get()) return;  // the system asks again
  const HDC memory = backBuffer_->Dc();
  const RECT& dirty = screen.Dirty();
  SelectClipRgn(memory, nullptr);
  IntersectClipRect(memory, dirty.left, dirty.top, dirty.right, dirty.bottom);
  SendMessageA(Handle(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory), 0);
  SendMessageA(Handle(), WM_PAINT, reinterpret_cast<WPARAM>(memory), 0);
  if (!backBuffer_) return;
  BitBlt(screen.Get(), 0, 0, clientWidth_, clientHeight_, memory, 0, 0, SRCCOPY);
}

void TmyComponent::PaintInto(HDC given) {
  const PaintDc dc(Handle(), given);
  if (!dc.Get()) return;
  RECT clip = {};
  GetClipBox(dc.Get(), &clip);
  PaintControls(dc.Get(), clip, false);
  Paint(dc.Get());
  PaintControls(dc.Get(), clip, true);
}

void TmyComponent::PaintControls(HDC dc, const RECT& clip, bool afterOwner) {
  for (TmyControl* control = controls_; control; control = control->NextControl()) {
    RECT common;
    if (control->PaintsAfterOwner() != afterOwner || !control->IsVisible()) continue;
    if (!IntersectRect(&common, &clip, &control->Bounds())) continue;
    const ShiftedOrigin origin(dc, control->Bounds().left, control->Bounds().top);
    control->Paint(dc);
  }
}

LRESULT TmyComponent::EraseBackground(HDC dc) {
  ThemeDraw::Fill(dc, RECT{0, 0, clientWidth_, clientHeight_}, background_);
  return 1;
}

bool TmyComponent::SetCursorAtPoint() {
  POINT at;
  GetCursorPos(&at);
  ScreenToClient(Handle(), &at);
  // Borders and title bars have cursors of their own.
  const RECT client = {0, 0, clientWidth_, clientHeight_};
  if (!PtInRect(&client, at)) return false;
  const TmyControl* hit = ControlAt(at.x, at.y);
  HCURSOR cursor = hit ? hit->GetCursor() : nullptr;
  if (!cursor) cursor = GetCursor();
  if (!cursor) return false;
  if (cursor != ::GetCursor()) ::SetCursor(cursor);
  return true;
}

TmyControl* TmyComponent::ControlAt(int x, int y) const {
  TmyControl* topmost = nullptr;  // later ones are painted over earlier ones
  for (TmyControl* control = controls_; control; control = control->NextControl()) {
    if (control->IsVisible() && PtInRect(&control->Bounds(), POINT{x, y})) topmost = control;
  }
  return topmost;
}

TmyComponent::Outcome TmyComponent::MouseMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const auto keys = static_cast<uint32_t>(GET_KEYSTATE_WPARAM(wParam));
  const int x = GET_X_LPARAM(lParam);
  const int y = GET_Y_LPARAM(lParam);
  switch (message) {
    case WM_MOUSEMOVE:
      MouseMoved(keys, x, y);
      break;
    case WM_LBUTTONDOWN:
      LeftDown(keys, x, y);
      break;
    case WM_LBUTTONUP:
      if (!LeftUp(keys, x, y)) return {true, 0};
      break;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP: {
      TmyControl* hit = ControlAt(x, y);
      TmyControl& target = hit && hit->IsEnabled() ? *hit : *this;
      const int left = hit && &target == hit ? hit->Bounds().left : 0;
      const int top = hit && &target == hit ? hit->Bounds().top : 0;
      message == WM_RBUTTONDOWN ? target.RightButtonDown(keys, x - left, y - top)
                                : target.RightButtonUp(keys, x - left, y - top);
      break;
    }
    case WM_MOUSEWHEEL: {
      const int notches = GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA;
      MouseWheel(MAKEWPARAM(LOWORD(wParam), static_cast<WORD>(notches)), this);
      return {true, 0};
    }
    default:
      break;
  }
  return {};
}

void TmyComponent::MouseMoved(uint32_t keys, int x, int y) {
  TmyControl* under = ControlAt(x, y);
  if (under != hotControl_) {
    TmyControl* left = hotControl_;
    hotControl_ = under;
    TmyApplication::Get().HideToolTip();
    if (left) left->MouseLeft();
    if (!IsAlive()) return;
    under = hotControl_;
  }
  TmyApplication::Get().HoveringMonitor().Report(under ? *under : *this);
  TRACKMOUSEEVENT leave = {sizeof(leave), TME_LEAVE, Handle(), 0};
  TrackMouseEvent(&leave);
  TmyControl* target = captureControl_ ? captureControl_ : under;
  if (target) {
    if (target->IsEnabled()) target->MouseMove(keys, x - target->Bounds().left, y - target->Bounds().top);
  } else {
    MouseMove(keys, x, y);
  }
}

void TmyComponent::CursorLeft() {
  TmyControl* left = hotControl_;
  hotControl_ = nullptr;
  TmyApplication::Get().HideToolTip();
  left ? left->MouseLeft() : MouseLeft();
}

void TmyComponent::CaptureLost() {
  TmyControl* former = captureControl_;
  captureControl_ = nullptr;
  if (former) former->Repaint();
}

void TmyComponent::LeftDown(uint32_t keys, int x, int y) {
  TmyApplication::Get().HideToolTip();
  HWND focus = Handle();
  while (focus && (GetWindowLongA(focus, GWL_STYLE) & WS_TABSTOP) == 0) {
    focus = (GetWindowLongA(focus, GWL_STYLE) & WS_CHILD) ? ::GetParent(focus) : nullptr;
  }
  if (focus) {
    TmyWindowBase* object = FromHandle(focus);
    if (object && object->AsComponent() == TopLevel()) TmyApplication::Get().RecordFocus(*TopLevel());
    ::SetFocus(focus);
    if (!IsAlive()) return;
  }
  SetCapture(Handle());
  captureControl_ = ControlAt(x, y);
  if (!captureControl_) {
    MouseDown(keys, x, y);
    return;
  }
  TmyControl* hit = captureControl_;
  if (!hit->IsEnabled()) return;
  if (hit->CanFocus()) FocusDrawn(hit);
  hit->MouseDown(keys, x - hit->Bounds().left, y - hit->Bounds().top);
}

// False: the module is going, nothing may be touched.
bool TmyComponent::LeftUp(uint32_t keys, int x, int y) {
  TmyControl* target = captureControl_;
  captureControl_ = nullptr;
  ReleaseCapture();
  if (!IsAlive()) return true;
  const bool isDouble = IsDoubleClick(x, y);
  lastUpTime_ = Clock::Ticks();
  lastUp_ = {x, y};
  hasLastUp_ = true;
  if (target && !target->IsEnabled()) return true;
  const int left = target ? target->Bounds().left : 0;
  const int top = target ? target->Bounds().top : 0;
  // The window's own handlers are called through `this`, a drawn control's through its pointer, which is looked up
  // again between the two calls: the first one may have destroyed it.
  target ? target->MouseUp(keys, x - left, y - top) : MouseUp(keys, x, y);
  if (TmyApplication::IsTerminating()) return false;
  if (!isDouble || !IsAlive()) return true;
  if (!target) {
    DoubleClick(x, y);
    return true;
  }
  for (TmyControl* control = controls_; control; control = control->NextControl()) {
    if (control != target) continue;
    target->DoubleClick(x - left, y - top);
    break;
  }
  return !TmyApplication::IsTerminating();
}

bool TmyComponent::IsDoubleClick(int x, int y) const noexcept {
  if (!hasLastUp_ || Clock::Ticks() - lastUpTime_ > GetDoubleClickTime()) return false;
  return std::abs(x - lastUp_.x) < GetSystemMetrics(SM_CXDOUBLECLK) &&
         std::abs(y - lastUp_.y) < GetSystemMetrics(SM_CYDOUBLECLK);
}

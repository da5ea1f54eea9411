#include "toolkit/myComponents.h"

#include <windowsx.h>

#include "foundation/Clock.h"
#include "foundation/Trace.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyMenuItem.h"

namespace {
constexpr UINT kStateChanges = 0x8000;  // in WINDOWPOS: minimised, maximised or restored

// A WM_SETTINGCHANGE names what has changed.
bool IsAboutForms(LPARAM section) {
  const auto* name = reinterpret_cast<const char*>(section);
  return name && lstrcmpiA(name, "intl") == 0;
}

}  // namespace

// The dispatcher: groups of messages, each in a function of its own. Whatever is not done there goes on to the window's
// former procedure. A handler may have destroyed the window by then; TmyWindowBase::WndProc copes with that.
LRESULT TmyComponent::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const Trace::Scope trace("myComponents.cpp TmyComponent::WndProc");
  Outcome outcome;
  if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
    outcome = MouseMessage(message, wParam, lParam);
  } else if (message >= WM_KEYFIRST && message <= WM_KEYLAST) {
    outcome = KeyMessage(message, wParam, lParam);
  } else if (message >= kMsgReflectedCommand && message <= kMsgEndModal) {
    outcome = PrivateMessage(message, wParam, lParam);
  } else if (message == WM_PAINT || message == WM_ERASEBKGND || message == WM_SETCURSOR) {
    outcome = PaintMessage(message, wParam);
  } else if ((message >= WM_CTLCOLOREDIT && message <= WM_CTLCOLORSTATIC) || message == WM_COMMAND ||
             message == WM_NOTIFY || message == WM_CONTEXTMENU || message == WM_CLOSE) {
    outcome = CommandMessage(message, wParam, lParam);
  } else {
    outcome = WindowMessage(message, wParam, lParam);
  }
  return outcome.done ? outcome.result : TmyWindowBase::WndProc(message, wParam, lParam);
}

TmyComponent::Outcome TmyComponent::WindowMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) Sized();
      break;
    case WM_ACTIVATE:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      ActiveOrFocus(message, wParam);
      break;
    case WM_ENABLE:
      EnableMessage(wParam != 0);
      break;
    case WM_SHOWWINDOW:
      PostMessageA(Handle(), kMsgDeferredShow, wParam, lParam);
      break;
    case WM_WINDOWPOSCHANGING:
      PositionChanging(*reinterpret_cast<WINDOWPOS*>(lParam));
      break;
    case WM_WINDOWPOSCHANGED:
      PositionChanged(*reinterpret_cast<const WINDOWPOS*>(lParam));
      break;
    case WM_TIMER:
      Timer(wParam);
      break;
    case WM_MOUSELEAVE:
      CursorLeft();
      break;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != Handle()) CaptureLost();
      break;
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
      if (parent_) break;
      if (message == WM_SETTINGCHANGE && IsAboutForms(lParam)) ThemeChanged();
      TmyApplication::Get().SystemLookChanged();
      break;
    case WM_GETDLGCODE:  // the host's loop may treat any window as a dialog's: the keys are ours all the same
      return {true, TmyWindowBase::WndProc(message, wParam, lParam) | DLGC_WANTALLKEYS};
    case WM_ENDSESSION:
      if (wParam != 0) SessionEnds((lParam & ENDSESSION_CLOSEAPP) != 0);
      break;
    case WM_DESTROY:
      Destroying();
      DestroyChildren();
      backBuffer_.reset();  // the object may have to wait for its end
      break;
    default:
      break;
  }
  return {};
}

void TmyComponent::Sized() {
  UpdateBounds();
  Realign();
  if (backBuffer_) backBuffer_->Resize(Handle(), clientWidth_, clientHeight_);
  Resized();
  if (parentRealigns_ && parent_) parent_->Realign();
}

void TmyComponent::ActiveOrFocus(UINT message, WPARAM wParam) {
  TmyApplication& application = TmyApplication::Get();
  if (message == WM_ACTIVATE) {
    if (wParam != 0) application.SetActiveWindow(this);
    application.HideToolTip();
    return;
  }
  if (message == WM_KILLFOCUS) {
    FocusChanged(false);
    return;
  }
  TmyComponent* recorded = application.FocusOf(*this);
  if (!recorded || recorded == this) {
    application.RecordFocus(*this);
    FocusChanged(true);
    if (IsAlive()) FocusInside(focusedControl_ ? *focusedControl_ : static_cast<TmyControl&>(*this));
  } else {
    recorded->TakeFocus();
  }
}

void TmyComponent::EnableMessage(bool enabled) {
  EnabledChanged();
  if (!HasStyle(WS_CHILD) || IsEnabled() != enabled) return;
  for (TmyComponent* child = NextChild(nullptr); child; child = NextChild(child)) child->SetEnabled(enabled);
  for (TmyControl* control = controls_; control; control = control->NextControl()) control->SetEnabled(enabled);
  if (!enabled) {
    captureControl_ = nullptr;
    Repaint();
  }
}

void TmyComponent::PositionChanging(WINDOWPOS& place) {
  const bool keepsSize = (place.flags & SWP_NOSIZE) != 0;
  const bool keepsPlace = (place.flags & SWP_NOMOVE) != 0;
  // The place and size of an icon are the system's affair.
  if ((keepsSize && keepsPlace) || (place.flags & kStateChanges) != 0) return;
  int x = keepsPlace ? bounds_.left : place.x;
  int y = keepsPlace ? bounds_.top : place.y;
  int width = keepsSize ? Width() : place.cx;
  int height = keepsSize ? Height() : place.cy;
  const bool changed = x != bounds_.left || y != bounds_.top || width != Width() || height != Height();
  if (!changed) return;
  ConstrainBounds(x, y, width, height);
  if (!keepsPlace) place.x = x, place.y = y;
  if (!keepsSize) place.cx = width, place.cy = height;
}

void TmyComponent::PositionChanged(const WINDOWPOS& place) {
  if ((place.flags & SWP_NOMOVE) != 0) return;
  const POINT before = {bounds_.left, bounds_.top};
  UpdateBounds();
  if (before.x != bounds_.left || before.y != bounds_.top) Moved();
}

TmyComponent::Outcome TmyComponent::KeyMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const auto key = static_cast<uint32_t>(wParam);
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      return KeyDownMessage(key, lParam);
    case WM_KEYUP:
      if (KeyUp(key, lParam)) return {true, 0};
      break;
    case WM_CHAR: {
      char character = static_cast<char>(wParam);
      Char(character, lParam);
      if (character == 0) return {true, 0};
      return {true, TmyWindowBase::WndProc(message, static_cast<uint8_t>(character), lParam)};
    }
    default:
      break;
  }
  return {};
}

TmyComponent::Outcome TmyComponent::KeyDownMessage(uint32_t key, LPARAM flags) {
  TmyComponent* top = TopLevel();
  TmyApplication::Get().HideToolTip();
  if (keyPreview_ || top->keyPreview_) top->PreviewKey(*this, key, flags);
  if (!IsAlive()) return {true, 0};
  if (key == VK_ESCAPE) PostMessageA(Handle(), kMsgEscape, 0, 0);
  if (key != 0 && KeyDown(key, flags)) return {true, 0};
  return {key == 0, 0};
}

TmyComponent::Outcome TmyComponent::PassUp(UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND parent = GetAncestor(Handle(), GA_PARENT);
  if (HasStyle(WS_CHILD) && parent) return {true, SendMessageA(parent, message, wParam, lParam)};
  return {};
}

TmyComponent::Outcome TmyComponent::PrivateMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kMsgReflectedCommand:
      return {true, Command(wParam)};
    case kMsgDeferredShow:
      ShowChanged(wParam != 0);
      return {true, 0};
    case kMsgEscape:
    case kMsgConfirm:
      if (const Outcome passed = PassUp(message, 0, 0); passed.done) return passed;
      message == kMsgEscape ? Escape() : Confirm();
      return {true, 0};
    case kMsgReflectedNotify:
      return {true, Notify(reinterpret_cast<NMHDR*>(lParam))};
    case kMsgWheel:
      MouseWheel(wParam, reinterpret_cast<TmyComponent*>(lParam));
      return {true, 0};
    case kMsgEndModal:
      if (inModalLoop_) {
        modalResult_ = static_cast<int>(wParam);
        PostMessageA(Handle(), 0, 0, 0);
        return {true, 0};
      }
      if (const HWND above = GetParent() ? GetParent()->Handle() : nullptr) {
        return {true, SendMessageA(above, message, wParam, lParam)};
      }
      return {true, 0};
    default:
      return {};
  }
}

TmyComponent::Outcome TmyComponent::CommandMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (lParam != 0) {
        // A control of somebody else's class does not know 0x8000: only our own windows get it.
        const auto source = reinterpret_cast<HWND>(lParam);
        if (!FromHandle(source)) return {};
        return {true, SendMessageA(source, kMsgReflectedCommand, wParam, lParam)};
      }
      return {TmyMenuItem::RaiseById(LOWORD(wParam)), 0};
    case WM_NOTIFY: {
      const LRESULT result = TmyWindowBase::WndProc(message, wParam, lParam);
      const HWND source = reinterpret_cast<const NMHDR*>(lParam)->hwndFrom;
      if (!FromHandle(source)) return {true, result};
      return {true, SendMessageA(source, kMsgReflectedNotify, wParam, lParam)};
    }
    case WM_CONTEXTMENU:
      ContextMenu(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
      return {true, 0};
    case WM_CLOSE:
      return CloseMessage();
    default:
      return {true, ControlColors(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam))};
  }
}

TmyComponent::Outcome TmyComponent::CloseMessage() {
  if (inModalLoop_) {
    Trace::Line("Ending Modal Loop");
    modalResult_ = -1;
    PostMessageA(Handle(), 0, 0, 0);  // the loop may be waiting when the message was sent, not posted
    return {true, 0};
  }
  if (!Closing()) return {true, 0};
  if (TmyApplication::Get().MainWindow() == this) PostQuitMessage(0);
  return {};
}

LRESULT TmyComponent::ControlColors(HDC dc, HWND control) {
  TmyWindowBase* const object = FromHandle(control);
  TmyComponent* const sender = object ? object->AsComponent() : nullptr;  // a helper without a look is none
  const TmyComponent* const component = sender ? sender : this;
  const auto brush = static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
  SelectObject(dc, brush);
  SetDCBrushColor(dc, component->BackgroundColor());
  SelectObject(dc, component->Font());
  SetTextColor(dc, component->IsEnabled() ? component->TextColor() : component->DisabledTextColor());
  SetBkColor(dc, component->BackgroundColor());
  return reinterpret_cast<LRESULT>(brush);
}

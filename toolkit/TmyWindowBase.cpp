#include "toolkit/TmyWindowBase.h"

#include <new>
#include <optional>

#include "foundation/Clock.h"
#include "foundation/Trace.h"
#include "toolkit/ModulePin.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/myComponents.h"

namespace {

POINT CentredOrAt(int x, int y, int width, int height) {
  if (x != -1 || y != -1) return {x, y};
  return {(GetSystemMetrics(SM_CXSCREEN) - width) / 2, (GetSystemMetrics(SM_CYSCREEN) - height) / 2};
}

TmyWindowBase* StoredObject(HWND handle) noexcept {
  return reinterpret_cast<TmyWindowBase*>(GetWindowLongPtrA(handle, GWLP_USERDATA));
}

void StoreObject(HWND handle, TmyWindowBase* object) noexcept {
  SetWindowLongPtrA(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(object));
}

WNDPROC SetProcedure(HWND handle, WNDPROC procedure) noexcept {
  return reinterpret_cast<WNDPROC>(SetWindowLongPtrA(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

}  // namespace

TmyWindowBase::TmyWindowBase(const char* caption, DWORD style, DWORD extendedStyle, int x, int y, int width, int height,
                             TmyComponent* parent) {
  TmyApplication& application = TmyApplication::Get();
  application.WindowCreated(*this);
  const POINT at = CentredOrAt(x, y, width, height);
  handle_ = CreateWindowExA(extendedStyle, application.ClassName(), caption, style, at.x, at.y, width, height,
                            parent ? parent->Handle() : nullptr, nullptr, application.Module(), this);
  if (!handle_) {
    application.Forget(*this);
    throw std::bad_alloc();  // nobody would ever delete an object without a window
  }
  beingDestroyed_ = false;
}

TmyWindowBase::~TmyWindowBase() {
  beingDestroyed_ = true;
  if (handle_) {
    const HWND handle = handle_;
    DetachOnDestroy();
    DestroyWindow(handle);
  }
  if (TmyApplication::Exists()) TmyApplication::Get().Forget(*this);
}

void TmyWindowBase::Destroy() {
  if (handle_) DestroyWindow(handle_);
}

void TmyWindowBase::Adopt(HWND other) {
  const HWND own = handle_;
  StoreObject(other, this);
  const WNDPROC procedure = StoredObject(other) == this ? SetProcedure(other, StaticWndProc) : nullptr;
  if (!procedure) {
    DestroyWindow(other);
    throw std::bad_alloc();
  }
  SetProcedure(own, previous_);
  StoreObject(own, nullptr);
  DestroyWindow(own);
  handle_ = other;
  previous_ = procedure;
  if (TmyComponent* parent = GetParent(); parent && parent->IsAlive()) {
    SendMessageA(parent->Handle(), WM_PARENTNOTIFY, WM_CREATE, reinterpret_cast<LPARAM>(other));
  }
}

LRESULT TmyWindowBase::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (hook_ && hookOwner_) {
    hook_(hookOwner_, *this, message, wParam, lParam);
    if (message == 0) return static_cast<LRESULT>(wParam);
  }
  if (!handle_) return 0;  // destroyed inside the hook or the handler before
  // A program that ends others tells it to all windows, hidden ones, too. A helper goes with its owner.
  if (message == WM_CLOSE && !AsComponent()) return 0;
  // Menus, an edit's own one, too, moving and sizing are loops of the system's, in which the host may unload the
  // module.
  std::optional<ModulePin> pin;
  if (message == WM_SYSCOMMAND || message == WM_CONTEXTMENU) pin.emplace();
  return CallWindowProcA(previous_, handle_, message, wParam, lParam);
}

TmyWindowBase* TmyWindowBase::FromHandle(HWND handle) noexcept {
  if (!handle || !TmyApplication::Exists()) return nullptr;
  return TmyApplication::Get().WindowOf(handle);
}

TmyWindowBase* TmyWindowBase::Attach(HWND handle, const CREATESTRUCTA& creation) noexcept {
  auto* object = static_cast<TmyWindowBase*>(creation.lpCreateParams);
  StoreObject(handle, object);
  if (object) object->handle_ = handle;
  return object;
}

LRESULT CALLBACK TmyWindowBase::StaticWndProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!TmyApplication::Exists()) return DefWindowProcA(handle, message, wParam, lParam);
  TmyApplication::Get().SetLastMessageTime(Clock::Ticks());
  auto* object = StoredObject(handle);
  if ((message == WM_NCCREATE || message == WM_CREATE) && !object) {  // else somebody sends it
    object = Attach(handle, *reinterpret_cast<const CREATESTRUCTA*>(lParam));
    if (StoredObject(handle) != object) return message == WM_CREATE ? -1 : FALSE;  // it would never hear of its end
  }
  if (!object) return DefWindowProcA(handle, message, wParam, lParam);
  const Hold hold;
  const LRESULT result = object->Dispatch(handle, message, wParam, lParam);
  if (message == WM_DESTROY) {
    object->DetachOnDestroy();
    TmyApplication::Get().Forget(*object);  // nobody may find it while it waits for its end
    if (!object->beingDestroyed_) {
      object->beingDestroyed_ = true;
      TmyApplication::Get().Bury(*object);
    }
  }
  return result;
}

// No exception may pass through the system into the host. When memory is short a message is done by halves.
LRESULT TmyWindowBase::Dispatch(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  try {
    return WndProc(message, wParam, lParam);
  } catch (const std::bad_alloc&) {
    Trace::Line("No memory in message %x", message);
    return DefWindowProcA(handle, message, wParam, lParam);
  }
}

// An adopted window gets its own procedure back, which still has memory to free.
void TmyWindowBase::DetachOnDestroy() noexcept {
  if (!handle_) return;
  StoreObject(handle_, nullptr);
  if (previous_ != DefWindowProcA) SetProcedure(handle_, previous_);
  handle_ = nullptr;
}

TmyWindowBase::Hold::Hold() : dispatching_(TmyApplication::Get().Dispatching()) {}

TmyWindowBase::Hold::~Hold() {
  if (dispatching_.IsOutermost()) TmyApplication::Get().DeleteBuried();
}

#include "toolkit/TmyApplication.h"

#include <shellapi.h>

#include <cstdio>
#include <new>
#include <utility>

#include "foundation/Trace.h"
#include "toolkit/DebugListing.h"
#include "toolkit/TmyHoveringMonitor.h"
#include "toolkit/TmyPublicTimer.h"
#include "toolkit/TmyToolTip.h"
#include "toolkit/myComponents.h"

namespace {

constexpr size_t kLogBufferSize = 160000;
constexpr WORD kModuleIcon = 1;  // the first icon of the module's resources; none is no harm

std::unique_ptr<TmyApplication> theApplication;  // see Get and Shutdown
bool terminating = false;

HINSTANCE ModuleOf(const void* address) noexcept {
  HMODULE module = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     static_cast<LPCSTR>(address), &module);
  return module;
}

}  // namespace

TmyApplication& TmyApplication::Get() {
  if (!theApplication) {
    terminating = false;
    theApplication = std::make_unique<TmyApplication>();
    try {
      theApplication->CreateHelpers();  // their window procedure already asks for the application
    } catch (const std::bad_alloc&) {
      Shutdown();  // the next one who asks tries again
      throw;
    }
  }
  return *theApplication;
}

bool TmyApplication::Exists() noexcept {
  return theApplication != nullptr;
}
bool TmyApplication::IsTerminating() noexcept {
  return terminating;
}

void TmyApplication::Shutdown() noexcept {
  if (!theApplication) return;
  theApplication->DestroyWindows();
  terminating = true;
  theApplication->DestroyHelpers();
  theApplication.reset();
}

TmyApplication::TmyApplication() : module_(ModuleOf(&theApplication)) {
  ReadCommandLine();
  RegisterWindowClass();
}

void TmyApplication::CreateHelpers() {
  hoveringMonitor_ = std::make_unique<TmyHoveringMonitor>();
  publicTimer_ = std::make_unique<TmyPublicTimer>();
  toolTip_ = std::make_unique<TmyToolTip>();
}

// A process that ends with the module loaded comes here without Shutdown. The helpers look at each other while they go.
TmyApplication::~TmyApplication() {
  DestroyHelpers();
  Trace::SetBuffer(nullptr, 0);
  logBuffer_.reset();
  if (listing_) listing_->Write();
  if (atom_ != 0 && !UnregisterClassA(className_, module_)) OutputDebugStringA("Class failed to unregister");
}

void TmyApplication::DestroyHelpers() noexcept {
  toolTip_.reset();
  hoveringMonitor_.reset();
  publicTimer_.reset();
}

// The host's command line, from its second argument on: "/l" asks for a log.
void TmyApplication::ReadCommandLine() {
  int count = 0;
  LPWSTR* arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (!arguments) return;
  for (int i = 1; i < count; ++i) {
    if (lstrcmpW(arguments[i], L"/l") == 0) logBuffer_ = std::make_unique<char[]>(kLogBufferSize);
  }
  LocalFree(arguments);
  if (!logBuffer_) return;
  Trace::SetBuffer(logBuffer_.get(), kLogBufferSize);
  Trace::SwitchOn(true);
  listing_ = std::make_unique<DebugListing>();
}

// The load address in the name keeps two loaded modules of this kind apart.
void TmyApplication::RegisterWindowClass() {
  std::snprintf(className_, sizeof(className_), "TmyComponent %x", reinterpret_cast<uintptr_t>(module_) >> 16);
  WNDCLASSEXA windowClass = {};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.style = CS_HREDRAW | CS_VREDRAW;
  windowClass.lpfnWndProc = TmyWindowBase::StaticWndProc;
  windowClass.hInstance = module_;
  windowClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  windowClass.hIcon = LoadIconA(module_, MAKEINTRESOURCEA(kModuleIcon));
  windowClass.lpszClassName = className_;
  atom_ = RegisterClassExA(&windowClass);
}

// Top-level windows take their children along; they go first, for they still use their children while they end. A
// window of another thread, helpers and sockets included, cannot be destroyed from here: it loses its object and our
// window procedure, and so every call into this module, and goes when its thread hears of it.
void TmyApplication::DestroyWindows() noexcept {
  for (const bool children : {false, true}) {
    for (uint32_t i = windows_.Count(); i-- > 0;) {
      if (i >= windows_.Count()) continue;  // destroying one may have taken others along
      auto* window = static_cast<TmyWindowBase*>(windows_.Get(i));
      if (!window->AsComponent() || !window->IsAlive()) continue;
      const HWND handle = window->Handle();
      if (window->HasStyle(WS_CHILD) == children) DestroyWindow(handle);
    }
  }
  // All of them before the first one is told: its thread may destroy it, and its children, at once.
  const auto isOther = [](HWND handle) {
    return handle && GetWindowThreadProcessId(handle, nullptr) != GetCurrentThreadId();
  };
  for (uint32_t i = 0; i < windows_.Count(); ++i) {
    const auto& window = *static_cast<TmyWindowBase*>(windows_.Get(i));
    if (!isOther(window.handle_)) continue;
    SetWindowLongPtrA(window.handle_, GWLP_USERDATA, 0);
    SetWindowLongPtrA(window.handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(window.previous_));
  }
  for (uint32_t i = 0; i < windows_.Count(); ++i) {
    auto& window = *static_cast<TmyWindowBase*>(windows_.Get(i));
    if (isOther(window.handle_)) PostMessageA(std::exchange(window.handle_, nullptr), WM_CLOSE, 0, 0);
  }
}

TmyComponent* TmyApplication::FocusOf(const TmyComponent& topLevel) const noexcept {
  for (uint32_t i = 0; i < focusRecords_.Count(); ++i) {
    const TmyPopupFocus* record = focusRecords_.Get(i);
    if (record->window == &topLevel) return record->focused;
  }
  return nullptr;
}

void TmyApplication::RecordFocus(TmyComponent& component) {
  TmyComponent* top = component.TopLevel();
  for (uint32_t i = 0; i < focusRecords_.Count(); ++i) {
    TmyPopupFocus* record = focusRecords_.Get(i);
    if (record->window != top) continue;
    record->focused = &component;
    return;
  }
  focusRecords_.Add(std::make_unique<TmyPopupFocus>(TmyPopupFocus{top, &component}));
}

void TmyApplication::WindowCreated(TmyWindowBase& window) {
  if (!windows_.TryAdd(&window)) throw std::bad_alloc();
  if (listing_) listing_->Add(window);
}

// Pointers are compared, never followed: the object is half destroyed.
void TmyApplication::Forget(const TmyWindowBase& window) noexcept {
  if (const int32_t at = windows_.IndexOf(&window); at >= 0) windows_.Delete(static_cast<uint32_t>(at));
  if (activeWindow_ && static_cast<TmyWindowBase*>(activeWindow_) == &window) activeWindow_ = nullptr;
  if (mainWindow_ && static_cast<TmyWindowBase*>(mainWindow_) == &window) mainWindow_ = nullptr;
  for (uint32_t i = focusRecords_.Count(); i-- > 0;) {
    TmyPopupFocus* record = focusRecords_.Get(i);
    if (static_cast<TmyWindowBase*>(record->window) == &window) {
      focusRecords_.Delete(i);
    } else if (record->focused && static_cast<TmyWindowBase*>(record->focused) == &window) {
      record->focused = nullptr;
    }
  }
}

void TmyApplication::Bury(TmyWindowBase& window) noexcept {
  window.buriedBefore_ = std::exchange(buried_, &window);
}

void TmyApplication::DeleteBuried() noexcept {
  while (buried_) delete std::exchange(buried_, buried_->buriedBefore_);
}

// The helpers are controls themselves: they come here when they go.
void TmyApplication::ForgetControl(const TmyControl& control) noexcept {
  if (listing_) listing_->Remove(control);
  if (hoveringMonitor_) hoveringMonitor_->Forget(control);
  if (publicTimer_) publicTimer_->StopTimer(control);
}

TmyWindowBase* TmyApplication::WindowOf(HWND handle) const noexcept {
  for (uint32_t i = 0; i < windows_.Count(); ++i) {
    auto* window = static_cast<TmyWindowBase*>(windows_.Get(i));
    if (window->Handle() == handle) return window;
  }
  return nullptr;
}

void TmyApplication::SystemLookChanged() {
  if (!theme_.Reload()) return;
  for (uint32_t i = 0; i < windows_.Count(); ++i) {
    TmyComponent* component = static_cast<TmyWindowBase*>(windows_.Get(i))->AsComponent();
    if (component && !component->GetParent()) component->ThemeChanged();
  }
}

void TmyApplication::ShowToolTip(const TmyControl& control, const char* text) {
  toolTip_->Show(control, text);
}

void TmyApplication::HideToolTip() noexcept {
  if (toolTip_) toolTip_->Hide();
}

void TmyApplication::WatchToolTip() noexcept {
  if (toolTip_) toolTip_->Watch();
}

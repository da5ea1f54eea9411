// Marlux 3. What all windows of this module share: the window class, the hidden helper windows, the theme, the records
// of who has the focus. One exists per loaded module, from its first use to Shutdown.
#pragma once

#include <windows.h>

#include <memory>

#include "foundation/FrameFlag.h"
#include "foundation/TmyTypeList.h"
#include "toolkit/TmyTheme.h"

class DebugListing;
class TmyComponent;
class TmyControl;
class TmyHoveringMonitor;
class TmyPublicTimer;
class TmyToolTip;
class TmyWindowBase;

// Which control of a top-level window had the focus last.
struct TmyPopupFocus {
  TmyComponent* window;   // not owned; its entry goes when it does
  TmyComponent* focused;  // not owned; null when unknown
};

class TmyApplication {
 public:
  // Made at the first call; throws std::bad_alloc when that fails. Not in the module's entry point: windows must not be
  // created under the loader's lock.
  [[nodiscard]] static TmyApplication& Get();
  [[nodiscard]] static bool Exists() noexcept;
  // At unload: ends modal loops, destroys the windows that are left, unregisters the class.
  static void Shutdown() noexcept;
  // Set once the module is going: no object may be touched any more.
  [[nodiscard]] static bool IsTerminating() noexcept;

  TmyApplication();
  ~TmyApplication();
  TmyApplication(const TmyApplication&) = delete;
  TmyApplication& operator=(const TmyApplication&) = delete;

  [[nodiscard]] const char* ClassName() const noexcept { return className_; }
  [[nodiscard]] HINSTANCE Module() const noexcept { return module_; }
  [[nodiscard]] TmyTheme& Theme() noexcept { return theme_; }
  [[nodiscard]] TmyHoveringMonitor& HoveringMonitor() noexcept { return *hoveringMonitor_; }
  [[nodiscard]] TmyPublicTimer& PublicTimer() noexcept { return *publicTimer_; }

  // Closing the application's main window posts the quit message. A plug-in never sets one: the loop is its host's.
  void SetMainWindow(TmyComponent* window) noexcept { mainWindow_ = window; }
  [[nodiscard]] TmyComponent* MainWindow() const noexcept { return mainWindow_; }
  void SetActiveWindow(TmyComponent* window) noexcept { activeWindow_ = window; }
  [[nodiscard]] TmyComponent* ActiveWindow() const noexcept { return activeWindow_; }
  void SetLastMessageTime(uint32_t ticks) noexcept { lastMessageTime_ = ticks; }
  [[nodiscard]] uint32_t LastMessageTime() const noexcept { return lastMessageTime_; }

  // What the debug listing tells of; null without a log. Windows are in it by themselves.
  [[nodiscard]] DebugListing* Listing() const noexcept { return listing_.get(); }

  [[nodiscard]] TmyComponent* FocusOf(const TmyComponent& topLevel) const noexcept;  // null: nothing recorded
  void RecordFocus(TmyComponent& component);                                         // under its top-level window
  void Forget(const TmyWindowBase& window) noexcept;                                 // the object is going
  void ForgetControl(const TmyControl& control) noexcept;  // by the helpers: it neither hovers nor ticks any more
  [[nodiscard]] TmyWindowBase* WindowOf(HWND handle) const noexcept;  // null: not one of this module's
  void SystemLookChanged();  // tells every top-level window when the theme is another one now

  void WindowCreated(TmyWindowBase& window);
  [[nodiscard]] const TmyList& Windows() const noexcept { return windows_; }  // live window objects, oldest first

  // Up while a message or another hold (TmyWindowBase::Hold) is in progress: code of ours is on the stack.
  [[nodiscard]] FrameFlag& Dispatching() noexcept { return dispatching_; }
  // Destroyed windows' objects wait for the end of the outermost message.
  void Bury(TmyWindowBase& window) noexcept;
  void DeleteBuried() noexcept;

  void ShowToolTip(const TmyControl& control, const char* text);  // at the cursor, until HideToolTip or some seconds
  void HideToolTip() noexcept;
  void WatchToolTip() noexcept;  // from time to time: hides one that nobody looks at any more

 private:
  void CreateHelpers();
  void DestroyHelpers() noexcept;
  void ReadCommandLine();
  void RegisterWindowClass();
  void DestroyWindows() noexcept;

  HINSTANCE module_;
  char className_[32] = {};
  ATOM atom_ = 0;
  TmyTheme theme_;
  std::unique_ptr<char[]> logBuffer_;  // with "/l" only, as the listing
  std::unique_ptr<DebugListing> listing_;
  TmyTypeList<TmyPopupFocus> focusRecords_;
  TmyList windows_;                  // TmyWindowBase pointers, not owned
  TmyWindowBase* buried_ = nullptr;  // the last one whose window is gone; owned until DeleteBuried
  FrameFlag dispatching_;
  TmyComponent* mainWindow_ = nullptr;    // not owned
  TmyComponent* activeWindow_ = nullptr;  // not owned
  uint32_t lastMessageTime_ = 0;
  std::unique_ptr<TmyHoveringMonitor> hoveringMonitor_;
  std::unique_ptr<TmyPublicTimer> publicTimer_;
  std::unique_ptr<TmyToolTip> toolTip_;
};

// What every control asks for its measures, fonts and colours.
[[nodiscard]] inline const TmyTheme& Theme() noexcept {
  return TmyApplication::Get().Theme();
}

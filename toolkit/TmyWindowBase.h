// Marlux 3. An object that owns a window. Every window of the toolkit, visible or hidden, has one window class and one
// window procedure, which finds the object and calls its WndProc.
//
// Life: the constructor creates the window; the object is made with `new` and deleted when its window is destroyed, by
// whoever destroys it (the user, the parent window, Destroy). Nobody else deletes it, except an owner that keeps a
// hidden helper window by value or in a unique_ptr: deleting such an object destroys its window. While a message to any
// window of the module or a Hold is in progress the deletion waits, so that a window may be destroyed inside its own
// handlers and inside those of its children.
#pragma once

#include <windows.h>

#include "foundation/FrameFlag.h"
#include "foundation/TmyString.h"
#include "toolkit/TmyControl.h"

class TmyWindowBase : public TmyControl {
 public:
  // Sees every message before default processing and may change all three; a message changed to 0 ends with wParam as
  // its result.
  using Hook = void (*)(void* owner, TmyWindowBase& window, UINT& message, WPARAM& wParam, LPARAM& lParam);

  // x = y = -1 centres the window on the screen. Width and height in pixels, frame included. With a parent and
  // WS_CHILD the window becomes the parent's child (and the parent is told by AddChild); without WS_CHILD the parent's
  // window owns it. Throws std::bad_alloc when the system gives no window.
  TmyWindowBase(const char* caption, DWORD style, DWORD extendedStyle, int x, int y, int width, int height,
                TmyComponent* parent);
  ~TmyWindowBase() override;

  [[nodiscard]] HWND Handle() const noexcept { return handle_; }  // null once destroyed
  [[nodiscard]] bool IsAlive() const noexcept { return handle_ != nullptr; }
  [[nodiscard]] bool HasStyle(DWORD style) const noexcept {
    return (static_cast<DWORD>(GetWindowLongA(handle_, GWL_STYLE)) & style) != 0;
  }
  void Destroy();

  // Takes over a window of another class (a system control): the own window is destroyed, the other one's procedure
  // becomes the default processing. Throws std::bad_alloc when it cannot be taken over; it is destroyed then.
  void Adopt(HWND other);

  template <auto kMethod, class Owner>
  void SetHook(Owner* owner) noexcept {
    hookOwner_ = owner;
    hook_ = [](void* object, TmyWindowBase& window, UINT& message, WPARAM& wParam, LPARAM& lParam) {
      (static_cast<Owner*>(object)->*kMethod)(window, message, wParam, lParam);
    };
  }

  virtual LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam);
  [[nodiscard]] virtual TmyComponent* AsComponent() noexcept { return nullptr; }

  // Keeps the objects (not the windows) of all destroyed windows alive for a block. Every message holds; a function
  // that goes on after something that may destroy its object outside of any message does so itself. Check IsAlive then.
  // It lies on the stack.
  class Hold {
   public:
    Hold();
    ~Hold();
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    FrameFlag::Scope dispatching_;
  };

  static LRESULT CALLBACK StaticWndProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
  // The object behind a window of this module, or null.
  [[nodiscard]] static TmyWindowBase* FromHandle(HWND handle) noexcept;

 protected:
  [[nodiscard]] bool IsBeingDestroyed() const noexcept { return beingDestroyed_; }

 private:
  friend class TmyApplication;

  static TmyWindowBase* Attach(HWND handle, const CREATESTRUCTA& creation) noexcept;
  LRESULT Dispatch(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
  void DetachOnDestroy() noexcept;

  HWND handle_ = nullptr;
  WNDPROC previous_ = DefWindowProcA;
  void* hookOwner_ = nullptr;  // not owned
  Hook hook_ = nullptr;
  TmyWindowBase* buriedBefore_ = nullptr;  // in the chain of those that wait for their deletion
  bool beingDestroyed_ = true;  // not to be deleted later: before it has its window, and once that is decided
};

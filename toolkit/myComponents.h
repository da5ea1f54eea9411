// Marlux 3. TmyComponent: a visible window or child window with the full message dispatch, the base of all controls
// that have a window and of all application windows. TmyControl.h tells the contract of the virtual operations.
#pragma once

#include <memory>

#include "foundation/TmyList.h"
#include "toolkit/BackBuffer.h"
#include "toolkit/TmyControl.h"
#include "toolkit/TmyEvent.h"
#include "toolkit/TmyWindowBase.h"

// The toolkit's private messages.
constexpr UINT kMsgReflectedCommand = 0x8000;  // to the control that a WM_COMMAND came from
constexpr UINT kMsgDeferredShow = 0x8001;      // WM_SHOWWINDOW, once the system is done with it
constexpr UINT kMsgEscape = 0x8002;            // passed up to the top-level window: Escape()
constexpr UINT kMsgConfirm = 0x8003;           // passed up to the top-level window: Confirm()
constexpr UINT kMsgReflectedNotify = 0x8004;   // to the control that a WM_NOTIFY came from
constexpr UINT kMsgWheel = 0x8005;             // MouseWheel(wParam, lParam) for another window
constexpr UINT kMsgEndModal = 0x8006;          // ends the modal loop of the window or of a parent, wParam = result

class TmyComponent : public TmyWindowBase {
 public:
  TmyComponent(const char* caption, DWORD style, DWORD extendedStyle, int x, int y, int width, int height,
               TmyComponent* parent);
  ~TmyComponent() override;

  // TmyControl's operations, for a window.
  void SetEnabled(bool ownerEnabled) override;
  [[nodiscard]] TmyComponent* GetParent() const override { return parent_; }
  void Repaint() override;
  void Enable(bool enabled) override;
  void Show(bool visible) override;
  [[nodiscard]] bool IsEnabled() const override;
  [[nodiscard]] bool IsVisible() const override;
  void GetScreenOrigin(POINT& origin) const override;
  void SetBounds(int left, int top, int width, int height) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;  // the focused drawn control first, then Tab
  bool KeyUp(uint32_t key, LPARAM flags) override;
  void Char(char& character, LPARAM flags) override;
  void FocusChanged(bool focused) override;
  [[nodiscard]] bool CanFocus() const override;

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  virtual void UpdateBounds();              // reads the bounds from the window
  virtual LRESULT EraseBackground(HDC dc);  // fills with the background colour
  virtual LRESULT Command(WPARAM wParam);   // reflected from the parent; menu items raise their own
  virtual LRESULT Notify(NMHDR* header);    // reflected from the parent
  virtual void ConstrainBounds(int& x, int& y, int& width, int& height);
  virtual void Escape();                                                 // top-level windows
  virtual void Confirm();                                                // top-level windows
  virtual void MouseWheel(WPARAM keysAndNotches, TmyComponent* source);  // signed notches in the high word; goes up
  virtual void ContextMenu(int x, int y);                                // screen; -1, -1 from the keyboard
  virtual void PreviewKey(TmyComponent& sender, uint32_t& key, LPARAM flags);
  virtual TmyComponent* NextChild(const TmyComponent* previous);  // question: children one by one, from null
  virtual void ShowChanged(bool visible);
  virtual void AddChild(TmyComponent* child);
  virtual void Realign();  // lays the children out anew
  virtual void TakeFocus();
  virtual void ThemeChanged();                 // fonts or colours are others now
  virtual void FocusMoved(TmyControl* drawn);  // the focus went to this drawn control, or null
  // The focus went to this window, one inside it, or a drawn control of one; goes up to the top-level window.
  virtual void FocusInside(const TmyControl& focused);
  virtual bool Closing();  // question at WM_CLOSE outside the modal loop: false keeps the window
  // The user logs off or the machine is shut down; or, with `isAppOnly`, the system wants files of the process to be
  // free and the program may go on all the same. The process may be ended as soon as this returns, without any window
  // being destroyed.
  virtual void SessionEnds(bool isAppOnly);

  // Runs until the window is closed or somebody ends it. Returns the result: -1 when closed by its close box, 0 when
  // the window was destroyed or the module is going; after 0 nothing of the window or its owner may be touched but
  // what the caller itself holds. The window is hidden afterwards, not destroyed.
  [[nodiscard]] int ShowModal(TmyComponent* owner);
  void EndModal(int result);  // from anywhere inside the dialog
  [[nodiscard]] bool IsInModalLoop() const noexcept { return inModalLoop_; }

  [[nodiscard]] TmyComponent* TopLevel() noexcept;
  [[nodiscard]] TmyControl* FirstControl() const noexcept { return controls_; }
  [[nodiscard]] TmyControl* ControlAt(int x, int y) const;
  // The drawn control that gets the keys while this window has the focus; null when the window itself does.
  [[nodiscard]] TmyControl* FocusedControl() const noexcept { return focusedControl_; }
  void FocusDrawn(TmyControl* control);
  // Everything that may get the focus, windows and drawn controls, in the order in which it was added.
  [[nodiscard]] const TmyList& FocusOrder() const noexcept { return focusOrder_; }

  void SetDoubleBuffered(bool on);
  void SetKeyPreview(bool on) noexcept { keyPreview_ = on; }
  void SetParentRealignsOnResize(bool on) noexcept { parentRealigns_ = on; }
  [[nodiscard]] int ClientWidth() const noexcept { return clientWidth_; }
  [[nodiscard]] int ClientHeight() const noexcept { return clientHeight_; }
  void SetCaption(const TmyString& caption);
  [[nodiscard]] TmyString Caption() const;

  void SetColors(COLORREF background, COLORREF text, COLORREF disabledText) noexcept;
  [[nodiscard]] COLORREF BackgroundColor() const noexcept { return background_; }
  [[nodiscard]] COLORREF TextColor() const noexcept { return text_; }
  [[nodiscard]] COLORREF DisabledTextColor() const noexcept { return disabledText_; }
  [[nodiscard]] virtual HFONT Font() const;  // the theme's message font; never owned by the caller

  [[nodiscard]] TmyComponent* AsComponent() noexcept override { return this; }

 protected:
  // The window's own work at WM_DESTROY, while it and its children still exist.
  virtual void Destroying();

 private:
  friend class TmyControl;

  // Groups of WndProc. A value means that the message is done with that result.
  struct Outcome {
    bool done = false;
    LRESULT result = 0;
  };
  Outcome WindowMessage(UINT message, WPARAM wParam, LPARAM lParam);
  Outcome PaintMessage(UINT message, WPARAM wParam);
  Outcome MouseMessage(UINT message, WPARAM wParam, LPARAM lParam);
  Outcome KeyMessage(UINT message, WPARAM wParam, LPARAM lParam);
  Outcome PrivateMessage(UINT message, WPARAM wParam, LPARAM lParam);
  Outcome CommandMessage(UINT message, WPARAM wParam, LPARAM lParam);

  void Sized();
  void ActiveOrFocus(UINT message, WPARAM wParam);
  void EnableMessage(bool enabled);
  void PositionChanging(WINDOWPOS& place);
  void PositionChanged(const WINDOWPOS& place);
  void PaintBuffered();
  void PaintInto(HDC given);
  void PaintControls(HDC dc, const RECT& clip, bool afterOwner);
  bool SetCursorAtPoint();
  LRESULT ControlColors(HDC dc, HWND control);
  void LeftDown(uint32_t keys, int x, int y);
  bool LeftUp(uint32_t keys, int x, int y);
  void CursorLeft();
  void CaptureLost();
  void MouseMoved(uint32_t keys, int x, int y);
  [[nodiscard]] bool IsDoubleClick(int x, int y) const noexcept;
  Outcome KeyDownMessage(uint32_t key, LPARAM flags);
  Outcome PassUp(UINT message, WPARAM wParam, LPARAM lParam);
  Outcome CloseMessage();
  void RunModalLoop();
  void DestroyChildren();
  void Link(TmyControl* control);
  void Unlink(TmyControl* control) noexcept;
  void RemoveChild(TmyComponent* child) noexcept;
  void ForgetControl(const TmyControl* control) noexcept;

  TmyControl* controls_ = nullptr;        // head of the drawn controls; each unlinks itself
  TmyControl* captureControl_ = nullptr;  // the drawn control that holds the mouse; one of the list
  TmyControl* hotControl_ = nullptr;      // the drawn control under the cursor; one of the list
  TmyControl* focusedControl_ = nullptr;  // one of the list
  TmyList focusOrder_;                    // TmyControl pointers, not owned: drawn controls and children
  TmyList children_;                      // TmyComponent pointers, not owned: each belongs to its window
  TmyList owned_;                         // the same for windows that this one's window owns: pop-ups and dialogs
  TmyComponent* parent_;                  // not owned; reset when the parent goes first
  std::unique_ptr<BackBuffer> backBuffer_;
  int clientWidth_ = 0;
  int clientHeight_ = 0;
  uint32_t lastUpTime_ = 0;
  POINT lastUp_ = {};
  bool hasLastUp_ = false;
  bool inModalLoop_ = false;
  bool keyPreview_ = false;
  bool parentRealigns_ = false;
  int modalResult_ = 0;
  COLORREF background_ = 0;
  COLORREF text_ = 0;
  COLORREF disabledText_ = 0;
};

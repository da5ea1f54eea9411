// Marlux 3. A control: a rectangle inside a window that is painted and fed input by that window. The base of everything
// visible; a control that has no window of its own is called drawn.
//
// Event contract. Each virtual operation below is a notification of something that happened, unless it says that it is
// a question. A handler may destroy the window that holds the control: the window's object lives on until the message
// is done, its window handle does not. Coordinates passed to a drawn control are relative to its own top-left corner.
#pragma once

#include <windows.h>

#include "foundation/TmyObject.h"
#include "foundation/TmyString.h"

class TmyComponent;

class TmyControl : public TmyObject {
 public:
  static constexpr uint32_t kPaintAfterOwner = 1u << 8;  // painted on top of the owning window's own drawing

  TmyControl() noexcept = default;           // a window object: its place is its window
  explicit TmyControl(TmyComponent& owner);  // a drawn control: joins the owner's list, behind those already there
  ~TmyControl() override;

  // The owner's half of being enabled: a control of a disabled window is disabled, whatever it was told itself.
  virtual void SetEnabled(bool ownerEnabled);
  virtual void Paint(HDC dc);
  virtual void MouseUp(uint32_t keys, int x, int y);  // keys: MK_ bits
  virtual void RightButtonDown(uint32_t keys, int x, int y);
  virtual void RightButtonUp(uint32_t keys, int x, int y);
  virtual void MouseMove(uint32_t keys, int x, int y);
  virtual void DoubleClick(int x, int y);
  virtual void Resized();
  virtual void Moved();
  virtual void EnabledChanged();
  virtual void MouseDown(uint32_t keys, int x, int y);
  virtual void Hover();  // the cursor rests on the control; shows its tool tip
  virtual void Timer(uintptr_t id);
  [[nodiscard]] virtual TmyComponent* GetParent() const;  // question
  virtual void Repaint();
  virtual void Enable(bool enabled);  // the control's own half of being enabled
  virtual void Show(bool visible);
  [[nodiscard]] virtual bool IsEnabled() const;       // question: both halves
  [[nodiscard]] virtual bool IsVisible() const;       // question
  virtual void GetScreenOrigin(POINT& origin) const;  // question
  [[nodiscard]] virtual HCURSOR GetCursor() const;    // question: null leaves the window's cursor
  virtual bool KeyDown(uint32_t key, LPARAM flags);   // true: used up
  virtual bool KeyUp(uint32_t key, LPARAM flags);
  virtual void Char(char& character, LPARAM flags);  // setting it to 0 eats it
  virtual void FocusChanged(bool focused);
  [[nodiscard]] virtual bool CanFocus() const { return false; }  // question: may the keyboard stop here
  virtual void MouseLeft();                                      // the cursor left a drawn control

  [[nodiscard]] const RECT& Bounds() const noexcept { return bounds_; }
  [[nodiscard]] int Width() const noexcept { return bounds_.right - bounds_.left; }
  [[nodiscard]] int Height() const noexcept { return bounds_.bottom - bounds_.top; }
  // In the owner's client coordinates; a window object moves its window.
  virtual void SetBounds(int left, int top, int width, int height);
  [[nodiscard]] TmyControl* NextControl() const noexcept { return next_; }
  [[nodiscard]] bool PaintsAfterOwner() const noexcept { return (flags_ & kPaintAfterOwner) != 0; }
  void SetPaintsAfterOwner(bool after) noexcept;
  void SetCursor(HCURSOR cursor) noexcept { cursor_ = cursor; }  // shared cursors only: it is not destroyed
  // Shown when the cursor rests on the control; empty: none.
  void SetToolTip(const TmyString& text) { toolTip_ = text; }
  // A drawn control: has the keyboard focus, that is, its window has it and passes it on.
  [[nodiscard]] bool HasFocus() const;

 protected:
  static constexpr uint32_t kOwnDisabled = 1u << 0;
  static constexpr uint32_t kOwnerDisabled = 1u << 1;
  static constexpr uint32_t kHidden = 1u << 2;

  [[nodiscard]] bool HasFlag(uint32_t flag) const noexcept { return (flags_ & flag) != 0; }
  bool ChangeFlag(uint32_t flag, bool on) noexcept;  // true when it changed

  RECT bounds_ = {};

 private:
  friend class TmyComponent;

  uint32_t flags_ = 0;
  TmyComponent* owner_ = nullptr;  // of a drawn control; not owned; reset when the owner goes first
  TmyControl* next_ = nullptr;     // next drawn control of the same owner; not owned
  HCURSOR cursor_ = nullptr;       // shared
  TmyString toolTip_;
};

// TmyComponent's construction, children, focus and modal loop; its message dispatch is in myComponents.cpp.
#include <new>

#include "toolkit/ModulePin.h"
#include "toolkit/TabOrder.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/myComponents.h"

TmyComponent::TmyComponent(const char* caption, DWORD style, DWORD extendedStyle, int x, int y, int width, int height,
                           TmyComponent* parent)
    : TmyWindowBase(caption, style, extendedStyle, x, y, width, height, parent), parent_(parent) {
  const TmyTheme::Colors& colors = Theme().Color();
  SetColors(colors.surface, colors.text, colors.disabled);
  if (parent && (style & WS_CHILD) != 0) {
    parent->AddChild(this);
  } else if (parent && !parent->owned_.TryAdd(this)) {
    throw std::bad_alloc();
  }
  UpdateBounds();
}

TmyComponent::~TmyComponent() {
  for (TmyControl* control = controls_; control; control = control->next_) control->owner_ = nullptr;
  for (const TmyList* list : {&children_, &owned_}) {
    for (uint32_t i = 0; i < list->Count(); ++i) static_cast<TmyComponent*>(list->Get(i))->parent_ = nullptr;
  }
  if (parent_) parent_->RemoveChild(this);
}

void TmyComponent::Destroying() {}

// Before the window's own object goes, so that no child or owned window can report to a parent that is half gone.
void TmyComponent::DestroyChildren() {
  TmyApplication::Get().HideToolTip();
  for (TmyList* list : {&owned_, &children_}) {
    while (list->Count() > 0) {
      auto* child = static_cast<TmyComponent*>(list->Get(list->Count() - 1));
      const Hold hold;
      RemoveChild(child);
      child->parent_ = nullptr;
      child->Destroy();
    }
  }
}

void TmyComponent::AddChild(TmyComponent* child) {
  if (children_.TryAdd(child) && focusOrder_.TryAdd(static_cast<TmyControl*>(child))) return;
  RemoveChild(child);
  throw std::bad_alloc();
}

void TmyComponent::RemoveChild(TmyComponent* child) noexcept {
  for (TmyList* list : {&children_, &owned_}) {
    if (const int32_t at = list->IndexOf(child); at >= 0) list->Delete(static_cast<uint32_t>(at));
  }
  if (const int32_t at = focusOrder_.IndexOf(static_cast<TmyControl*>(child)); at >= 0) {
    focusOrder_.Delete(static_cast<uint32_t>(at));
  }
}

TmyComponent* TmyComponent::NextChild(const TmyComponent* previous) {
  const int32_t at = previous ? children_.IndexOf(previous) : -1;
  if (previous && at < 0) return nullptr;
  return static_cast<TmyComponent*>(children_.Get(static_cast<uint32_t>(at + 1)));
}

void TmyComponent::Link(TmyControl* control) {
  if (!focusOrder_.TryAdd(control)) throw std::bad_alloc();
  TmyControl** end = &controls_;
  while (*end) end = &(*end)->next_;
  *end = control;
}

void TmyComponent::Unlink(TmyControl* control) noexcept {
  for (TmyControl** link = &controls_; *link; link = &(*link)->next_) {
    if (*link != control) continue;
    *link = control->next_;
    break;
  }
  ForgetControl(control);
}

void TmyComponent::ForgetControl(const TmyControl* control) noexcept {
  if (captureControl_ == control) captureControl_ = nullptr;
  if (hotControl_ == control) hotControl_ = nullptr;
  if (focusedControl_ == control) focusedControl_ = nullptr;
  if (const int32_t at = focusOrder_.IndexOf(control); at >= 0) focusOrder_.Delete(static_cast<uint32_t>(at));
}

TmyComponent* TmyComponent::TopLevel() noexcept {
  TmyComponent* top = this;
  while (top->parent_ && top->HasStyle(WS_CHILD)) top = top->parent_;
  return top;
}

void TmyComponent::UpdateBounds() {
  if (!IsAlive() || IsIconic(Handle())) return;  // an icon keeps the bounds that it will be restored to
  RECT client = {};
  GetClientRect(Handle(), &client);
  clientWidth_ = client.right;
  clientHeight_ = client.bottom;
  RECT place = {};
  GetWindowRect(Handle(), &place);
  if (parent_ && HasStyle(WS_CHILD)) {
    MapWindowPoints(nullptr, ::GetParent(Handle()), reinterpret_cast<POINT*>(&place), 2);
  }
  bounds_ = place;
}

void TmyComponent::SetBounds(int left, int top, int width, int height) {
  SetWindowPos(Handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void TmyComponent::SetEnabled(bool ownerEnabled) {
  ChangeFlag(kOwnerDisabled, !ownerEnabled);
  EnableWindow(Handle(), TmyControl::IsEnabled());
}

void TmyComponent::Enable(bool enabled) {
  ChangeFlag(kOwnDisabled, !enabled);
  EnableWindow(Handle(), TmyControl::IsEnabled());
}

void TmyComponent::Show(bool visible) {
  ShowWindow(Handle(), visible ? SW_SHOW : SW_HIDE);
}
bool TmyComponent::IsEnabled() const {
  return IsAlive() && IsWindowEnabled(Handle());
}
bool TmyComponent::IsVisible() const {
  return IsAlive() && HasStyle(WS_VISIBLE);
}

void TmyComponent::Repaint() {
  if (IsAlive()) InvalidateRect(Handle(), nullptr, TRUE);
}

void TmyComponent::GetScreenOrigin(POINT& origin) const {
  RECT place = {};
  GetWindowRect(Handle(), &place);
  origin = {place.left, place.top};
}

bool TmyComponent::CanFocus() const {
  return IsAlive() && HasStyle(WS_TABSTOP) && IsEnabled() && IsWindowVisible(Handle());
}

void TmyComponent::TakeFocus() {
  ::SetFocus(Handle());
}

void TmyComponent::FocusDrawn(TmyControl* control) {
  if (focusedControl_ == control) return;
  TmyControl* former = focusedControl_;
  focusedControl_ = control;
  if (former) former->FocusChanged(false);
  if (!IsAlive()) return;
  if (focusedControl_ && ::GetFocus() == Handle()) focusedControl_->FocusChanged(true);
  if (IsAlive() && focusedControl_) FocusInside(*focusedControl_);
  if (IsAlive()) FocusMoved(focusedControl_);
}

void TmyComponent::FocusChanged(bool focused) {
  if (focusedControl_) focusedControl_->FocusChanged(focused);
}

void TmyComponent::FocusMoved(TmyControl*) {}

bool TmyComponent::KeyDown(uint32_t key, LPARAM flags) {
  if (focusedControl_ && focusedControl_->IsEnabled() && focusedControl_->KeyDown(key, flags)) return true;
  if (!IsAlive()) return true;
  if (key != VK_TAB || GetKeyState(VK_CONTROL) < 0 || GetKeyState(VK_MENU) < 0) return false;
  TabOrder(*TopLevel()).Move(*this, GetKeyState(VK_SHIFT) >= 0);
  return true;
}

bool TmyComponent::KeyUp(uint32_t key, LPARAM flags) {
  return focusedControl_ && focusedControl_->IsEnabled() && focusedControl_->KeyUp(key, flags);
}

void TmyComponent::Char(char& character, LPARAM flags) {
  if (focusedControl_ && focusedControl_->IsEnabled()) focusedControl_->Char(character, flags);
}

LRESULT TmyComponent::Command(WPARAM) {
  return 0;
}
LRESULT TmyComponent::Notify(NMHDR*) {
  return 0;
}
void TmyComponent::ConstrainBounds(int&, int&, int&, int&) {}
void TmyComponent::Escape() {}
void TmyComponent::Confirm() {}
void TmyComponent::ContextMenu(int, int) {}
void TmyComponent::PreviewKey(TmyComponent&, uint32_t&, LPARAM) {}
void TmyComponent::ShowChanged(bool) {}
void TmyComponent::Realign() {}
void TmyComponent::SessionEnds(bool) {}
bool TmyComponent::Closing() {
  return true;
}

void TmyComponent::FocusInside(const TmyControl& focused) {
  if (parent_ && this != TopLevel()) parent_->FocusInside(focused);
}

void TmyComponent::MouseWheel(WPARAM keysAndNotches, TmyComponent* source) {
  if (parent_ && this != TopLevel()) parent_->MouseWheel(keysAndNotches, source);
}

void TmyComponent::ThemeChanged() {
  const TmyTheme::Colors& colors = Theme().Color();
  SetColors(colors.surface, colors.text, colors.disabled);
  for (const TmyList* list : {&children_, &owned_}) {
    for (uint32_t i = 0; i < list->Count(); ++i) static_cast<TmyComponent*>(list->Get(i))->ThemeChanged();
  }
  Realign();
  Repaint();
}

void TmyComponent::SetDoubleBuffered(bool on) {
  backBuffer_ = on ? std::make_unique<BackBuffer>() : nullptr;
  if (on) backBuffer_->Resize(Handle(), clientWidth_, clientHeight_);
}

void TmyComponent::SetCaption(const TmyString& caption) {
  SetWindowTextA(Handle(), caption.Chars());
}

TmyString TmyComponent::Caption() const {
  char text[512] = {};
  GetWindowTextA(Handle(), text, sizeof(text));
  return text;
}

void TmyComponent::SetColors(COLORREF background, COLORREF text, COLORREF disabledText) noexcept {
  background_ = background;
  text_ = text;
  disabledText_ = disabledText;
}

HFONT TmyComponent::Font() const {
  return Theme().Get(TmyTheme::Font::kMessage);
}

int TmyComponent::ShowModal(TmyComponent* owner) {
  const Hold hold;      // the window may be destroyed inside the loop; its object must outlive this function
  const ModulePin pin;  // the host may unload the module inside the loop; its code must outlive it too
  modalResult_ = 0;
  inModalLoop_ = true;
  TmyComponent* disabled = owner ? owner : parent_;
  const HWND disabledHandle = disabled ? disabled->Handle() : nullptr;
  const bool wasEnabled = disabled && disabled->IsEnabled();
  if (disabledHandle) EnableWindow(disabledHandle, FALSE);
  Show(true);
  RunModalLoop();
  const bool gone = TmyApplication::IsTerminating() || !IsAlive() || !inModalLoop_;
  inModalLoop_ = false;
  if (TmyApplication::IsTerminating()) return 0;
  // By handle, not by object: the owner may be gone.
  if (disabledHandle && IsWindow(disabledHandle)) {
    EnableWindow(disabledHandle, wasEnabled);
    SetForegroundWindow(disabledHandle);
  }
  if (gone) return 0;
  Show(false);
  return modalResult_;
}

void TmyComponent::RunModalLoop() {
  while (modalResult_ == 0 && !TmyApplication::IsTerminating()) {
    MSG message;
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);  // the host's windows may know more letters than ours
    if (got == 0) {
      PostQuitMessage(static_cast<int>(message.wParam));  // it was meant for the host's loop
      inModalLoop_ = false;
    }
    if (got <= 0) return;
    // Also when the window went while the loop waited: the message may be the host's.
    TranslateMessage(&message);
    DispatchMessageW(&message);
    if (!IsAlive() || !inModalLoop_) return;
  }
}

void TmyComponent::EndModal(int result) {
  SendMessageA(Handle(), kMsgEndModal, static_cast<WPARAM>(result), 0);
}

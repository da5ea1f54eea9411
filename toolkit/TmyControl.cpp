#include "toolkit/TmyControl.h"

#include "toolkit/DebugListing.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/myComponents.h"

TmyControl::TmyControl(TmyComponent& owner) : owner_(&owner) {
  owner.Link(this);
  if (DebugListing* listing = TmyApplication::Get().Listing()) listing->Add(*this);
}

TmyControl::~TmyControl() {
  if (owner_) owner_->Unlink(this);
  if (TmyApplication::Exists()) TmyApplication::Get().ForgetControl(*this);
}

void TmyControl::SetEnabled(bool ownerEnabled) {
  const bool before = IsEnabled();
  ChangeFlag(kOwnerDisabled, !ownerEnabled);
  if (IsEnabled() != before) EnabledChanged();
}

void TmyControl::Enable(bool enabled) {
  const bool before = IsEnabled();
  ChangeFlag(kOwnDisabled, !enabled);
  if (IsEnabled() != before) EnabledChanged();
}

void TmyControl::Paint(HDC) {}
void TmyControl::MouseUp(uint32_t, int, int) {}
void TmyControl::RightButtonDown(uint32_t, int, int) {}
void TmyControl::RightButtonUp(uint32_t, int, int) {}
void TmyControl::MouseMove(uint32_t, int, int) {}
void TmyControl::DoubleClick(int, int) {}
void TmyControl::Resized() {}
void TmyControl::Moved() {}
void TmyControl::EnabledChanged() {
  Repaint();
}
void TmyControl::MouseDown(uint32_t, int, int) {}
void TmyControl::Timer(uintptr_t) {}
bool TmyControl::KeyDown(uint32_t, LPARAM) {
  return false;
}
bool TmyControl::KeyUp(uint32_t, LPARAM) {
  return false;
}
void TmyControl::Char(char&, LPARAM) {}
void TmyControl::FocusChanged(bool) {
  Repaint();
}
void TmyControl::MouseLeft() {}

void TmyControl::Hover() {
  if (!toolTip_.IsEmpty()) TmyApplication::Get().ShowToolTip(*this, toolTip_.Chars());
}

TmyComponent* TmyControl::GetParent() const {
  return owner_;
}

void TmyControl::Repaint() {
  if (owner_ && owner_->IsAlive()) InvalidateRect(owner_->Handle(), &bounds_, TRUE);
}

void TmyControl::Show(bool visible) {
  if (!ChangeFlag(kHidden, !visible)) return;
  if (!visible && owner_ && owner_->FocusedControl() == this) owner_->FocusDrawn(nullptr);
  Repaint();
}

bool TmyControl::IsEnabled() const {
  return !HasFlag(kOwnDisabled | kOwnerDisabled);
}
bool TmyControl::IsVisible() const {
  return !HasFlag(kHidden);
}

void TmyControl::GetScreenOrigin(POINT& origin) const {
  origin = {bounds_.left, bounds_.top};
  if (owner_ && owner_->IsAlive()) ClientToScreen(owner_->Handle(), &origin);
}

HCURSOR TmyControl::GetCursor() const {
  return cursor_;
}

void TmyControl::SetBounds(int left, int top, int width, int height) {
  const RECT next = {left, top, left + width, top + height};
  if (EqualRect(&next, &bounds_)) return;
  Repaint();
  const bool resized = width != Width() || height != Height();
  const bool moved = left != bounds_.left || top != bounds_.top;
  bounds_ = next;
  Repaint();
  if (resized) Resized();
  if (moved) Moved();
}

void TmyControl::SetPaintsAfterOwner(bool after) noexcept {
  ChangeFlag(kPaintAfterOwner, after);
}

bool TmyControl::HasFocus() const {
  return owner_ && owner_->FocusedControl() == this && owner_->IsAlive() && ::GetFocus() == owner_->Handle();
}

bool TmyControl::ChangeFlag(uint32_t flag, bool on) noexcept {
  if (HasFlag(flag) == on) return false;
  flags_ = on ? flags_ | flag : flags_ & ~flag;
  return true;
}

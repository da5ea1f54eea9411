#include "toolkit/TmyDropDown.h"

#include "toolkit/DropDownPlace.h"
#include "toolkit/TmyApplication.h"

namespace {

bool IsInside(const TmyComponent& window, POINT screen) {
  RECT area = {};
  GetWindowRect(window.Handle(), &area);
  return PtInRect(&area, screen) != FALSE;
}

}  // namespace

TmyDropDown::TmyDropDown(TmyComponent& field, const TmyLBitemList& items, int32_t selection, int textWidth)
    : TmyDropWindow(field), list_(new TmyListBox(*this, WS_VISIBLE)), textWidth_(textWidth) {
  list_->SetFollowsMouse(true);
  list_->activated.Bind<&TmyDropDown::ListActivated>(this);
  list_->ShowItemsOf(items);
  list_->SetSelection(selection);
}

void TmyDropDown::Open() {
  const RECT place = Place();
  SetBounds(place.left, place.top, place.right - place.left, place.bottom - place.top);
  list_->ScrollBar().SetPosition(list_->Selection() - list_->VisibleRows() / 2);  // with what comes before and after
  OpenAt(place);
}

void TmyDropDown::ItemsChanged(int textWidth) {
  textWidth_ = textWidth;
  list_->ItemsChanged();
  const RECT place = Place();
  SetBounds(place.left, place.top, place.right - place.left, place.bottom - place.top);
}

RECT TmyDropDown::Place() const {
  return DropDownPlace::Of(FieldPlace(), WorkArea(), list_->Count(), Theme().RowHeight(), textWidth_,
                           TmyScrollBar::Thickness());
}

void TmyDropDown::Realign() {
  list_->SetBounds(0, 0, ClientWidth(), ClientHeight());
}

bool TmyDropDown::IsOnScrollBar(POINT screen) const {
  return list_->ScrollBar().IsVisible() && IsInside(list_->ScrollBar(), screen);
}

// Everything goes on to the part below the cursor.
void TmyDropDown::CapturedMouse(UINT message, uint32_t keys, POINT screen) {
  TmyScrollBar& bar = list_->ScrollBar();
  const bool onBar = IsOnScrollBar(screen);
  POINT inList = screen;
  ScreenToClient(list_->Handle(), &inList);
  if (message == WM_MOUSEMOVE && onBar) {
    bar.MouseMove(keys & ~static_cast<uint32_t>(MK_LBUTTON), 0, 0);
  } else if (message == WM_MOUSEMOVE) {
    SendMessageA(bar.Handle(), WM_MOUSELEAVE, 0, 0);
    list_->MouseMove(keys, inList.x, inList.y);
  } else if (message == WM_LBUTTONDOWN && onBar) {
    // The scroll bar captures the mouse by itself, which needs the real message; the list must not.
    ScreenToClient(bar.Handle(), &screen);
    SendMessageA(bar.Handle(), message, keys, MAKELPARAM(screen.x, screen.y));
  } else if (message == WM_LBUTTONDOWN) {
    list_->MouseDown(keys, inList.x, inList.y);
  } else if (!onBar && IsInside(*this, screen)) {
    list_->MouseUp(keys, inList.x, inList.y);
  }
}

void TmyDropDown::MouseWheel(WPARAM keysAndNotches, TmyComponent*) {
  if (!IsUnderCursor()) {
    Dismiss();
  } else if (list_->ScrollBar().CanScroll()) {  // otherwise the list would hand it up to here again
    list_->MouseWheel(keysAndNotches, list_);
  }
}

void TmyDropDown::ListActivated(TmyListBox&) {
  if (IsAlive()) chosen();
}

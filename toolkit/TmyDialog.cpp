#include "toolkit/TmyDialog.h"

#include "toolkit/CentredPlace.h"
#include "toolkit/TabOrder.h"

TmyDialog::TmyDialog(const char* caption, DWORD style, DWORD extendedStyle, TmyComponent& owner)
    : TmyComponent(caption, style, extendedStyle, 0, 0, 1, 1, &owner) {  // until PlaceCentred
  SetDoubleBuffered(true);
}

void TmyDialog::FocusChanged(bool focused) {
  if (focused && !FocusedControl()) TabOrder(*this).First();
  TmyComponent::FocusChanged(focused);
}

void TmyDialog::PlaceCentred(const TmyComponent& around, SIZE size, int shift) {
  const RECT place = CentredPlace(around, size, shift);
  SetBounds(place.left, place.top, place.right - place.left, place.bottom - place.top);
  Realign();  // also where the size stays
}

// Marlux 3. A window with controls that Tab walks through: the first of them has the focus as soon as the window gets
// it, and it is drawn as a whole.
#pragma once

#include "toolkit/myComponents.h"

class TmyDialog : public TmyComponent {
 public:
  // What ShowModal returns of dialogs that are confirmed or not.
  static constexpr int kConfirmed = 1;
  static constexpr int kCancelled = 2;

  TmyDialog(const char* caption, DWORD style, DWORD extendedStyle, TmyComponent& owner);

  void FocusChanged(bool focused) override;

 protected:
  // Also lays the controls out.
  void PlaceCentred(const TmyComponent& around, SIZE size, int shift = 0);  // see CentredPlace; frame included
};

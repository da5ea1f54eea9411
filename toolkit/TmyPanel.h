// Marlux 3. A plain child window: the base of most controls and of panels that hold others.
#pragma once

#include "toolkit/myComponents.h"

class TmyPanel : public TmyComponent {
 public:
  // Invisible until its bounds are set and Show(true) is called, or `style` has WS_VISIBLE. WS_CHILD is added.
  TmyPanel(TmyComponent& parent, DWORD style, const char* caption = "");
};

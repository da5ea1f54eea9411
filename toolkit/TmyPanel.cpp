#include "toolkit/TmyPanel.h"

TmyPanel::TmyPanel(TmyComponent& parent, DWORD style, const char* caption)
    : TmyComponent(caption, style | WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0, 0, &parent) {
  SetDoubleBuffered(true);
}

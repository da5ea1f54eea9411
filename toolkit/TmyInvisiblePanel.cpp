#include "toolkit/TmyInvisiblePanel.h"

#include <windowsx.h>

TmyInvisiblePanel::TmyInvisiblePanel(TmyComponent& parent)
    : TmyComponent("", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0, 0, &parent) {
  SetDoubleBuffered(true);
}

// The parent's own picture, moved so that the part below this panel lands in the context. By the viewport: painting
// sets the window origin itself.
LRESULT TmyInvisiblePanel::EraseBackground(HDC dc) {
  TmyComponent* below = GetParent();
  if (!below || !below->IsAlive()) return TmyComponent::EraseBackground(dc);
  const SavedDc saved(dc);
  SetViewportOrgEx(dc, -Bounds().left, -Bounds().top, nullptr);
  below->EraseBackground(dc);
  SendMessageA(below->Handle(), WM_PAINT, reinterpret_cast<WPARAM>(dc), 0);
  return 1;
}

LRESULT TmyInvisiblePanel::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCHITTEST) {
    POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ScreenToClient(Handle(), &at);
    return ControlAt(at.x, at.y) ? HTCLIENT : HTTRANSPARENT;
  }
  return TmyComponent::WndProc(message, wParam, lParam);
}

#include "toolkit/Tmy_CheckBox.h"

#include "toolkit/SmoothShapes.h"
#include "toolkit/TmyApplication.h"

void Tmy_CheckBox::SetChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  Repaint();
}

void Tmy_CheckBox::Click() {
  SetChecked(!checked_);
  clicked(*this);
}

void Tmy_CheckBox::Paint(HDC dc) {
  const RECT mark = MarkArea();
  if (checked_) {
    SmoothShapes::Box(dc, mark, FilledColor(), FilledColor());
    SmoothShapes::CheckMark(dc, mark.left, mark.top, mark.right - mark.left, Theme().Color().accentText);
  } else {
    SmoothShapes::Box(dc, mark, InsideColor(), OutlineColor());
  }
  PaintMarkedCaption(dc);
}

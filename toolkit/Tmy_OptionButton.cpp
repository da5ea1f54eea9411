#include "toolkit/Tmy_OptionButton.h"

#include <algorithm>

#include "toolkit/ListKeys.h"
#include "toolkit/SmoothShapes.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/myComponents.h"

std::vector<Tmy_OptionButton*> Tmy_OptionButton::Group() const {
  std::vector<Tmy_OptionButton*> group;
  bool isOurs = false;
  const TmyComponent* owner = GetParent();
  for (TmyControl* control = owner ? owner->FirstControl() : nullptr; control; control = control->NextControl()) {
    auto* option = dynamic_cast<Tmy_OptionButton*>(control);
    if (!option) continue;
    if (option->group_ != group_) {
      if (isOurs) break;
      group.clear();
      continue;
    }
    isOurs = isOurs || option == this;
    group.push_back(option);
  }
  return group;
}

void Tmy_OptionButton::SetChecked(bool checked) {
  if (checked) {
    for (Tmy_OptionButton* other : Group()) {
      if (other != this) other->SetChecked(false);
    }
  }
  if (checked == checked_) return;
  checked_ = checked;
  Repaint();
}

void Tmy_OptionButton::Click() {
  SetChecked(true);
  GetParent()->FocusDrawn(this);  // the mouse could not give it the focus while another one was checked
  clicked(*this);
}

bool Tmy_OptionButton::KeyDown(uint32_t key, LPARAM flags) {
  const bool forward = key == VK_RIGHT || key == VK_DOWN;
  const bool back = key == VK_LEFT || key == VK_UP;
  if ((!forward && !back) || ListKeys::IsWithAlt(flags)) return Tmy_Clickable::KeyDown(key, flags);
  std::vector<Tmy_OptionButton*> group = Group();
  if (back) std::reverse(group.begin(), group.end());
  const auto self = std::find(group.begin(), group.end(), this);
  std::rotate(group.begin(), self, group.end());
  const auto next =
      std::find_if(group.begin() + 1, group.end(), [](const auto* other) { return other->MayBeChosen(); });
  if (next != group.end()) (*next)->Click();
  return true;
}

// The checked one of the group, or the first that may be chosen when that one may not.
bool Tmy_OptionButton::CanFocus() const {
  const std::vector<Tmy_OptionButton*> group = Group();
  const auto isStop = [](const auto* option) { return option->checked_ && option->MayBeChosen(); };
  auto stop = std::find_if(group.begin(), group.end(), isStop);
  if (stop == group.end()) {
    stop = std::find_if(group.begin(), group.end(), [](const auto* option) { return option->MayBeChosen(); });
  }
  return stop != group.end() && *stop == this;
}

void Tmy_OptionButton::Paint(HDC dc) {
  const RECT mark = MarkArea();
  const int size = mark.right - mark.left;
  constexpr int kPixel = ThemeDraw::kUnits;
  SmoothShapes::Circle(dc, mark.left, mark.top, size, 0, checked_ ? FilledColor() : OutlineColor());
  SmoothShapes::Circle(dc, mark.left, mark.top, size, kPixel, InsideColor());
  if (checked_) SmoothShapes::Circle(dc, mark.left, mark.top, size, size * kPixel * 7 / 26, FilledColor());
  PaintMarkedCaption(dc);
}

#include "toolkit/TabOrder.h"

#include "toolkit/TmyApplication.h"

void TabOrder::Collect(TmyComponent& window) {
  const size_t before = stops_.size();
  const TmyList& order = window.FocusOrder();
  for (uint32_t i = 0; i < order.Count(); ++i) {
    auto* control = static_cast<TmyControl*>(order.Get(i));
    if (!control->IsVisible()) continue;
    auto* child = dynamic_cast<TmyComponent*>(control);
    if (!child) {
      if (control->CanFocus() && control->IsEnabled()) stops_.push_back({&window, control});
    } else {
      const bool isChildWindow = child->IsAlive() && (GetWindowLongA(child->Handle(), GWL_STYLE) & WS_CHILD) != 0;
      if (isChildWindow && child->IsEnabled()) Collect(*child);
    }
  }
  if (stops_.size() == before && window.CanFocus()) stops_.push_back({&window, nullptr});
}

void TabOrder::Move(TmyComponent& from, bool forward) const {
  const size_t count = stops_.size();
  if (count == 0) return;
  size_t at = forward ? count - 1 : 0;
  for (size_t i = 0; i < count; ++i) {
    if (stops_[i].window == &from && stops_[i].drawn == from.FocusedControl()) at = i;
  }
  Go(stops_[forward ? (at + 1) % count : (at + count - 1) % count]);
}

void TabOrder::First() const {
  if (!stops_.empty()) Go(stops_.front());
}

void TabOrder::Go(const Stop& stop) const {
  const TmyWindowBase::Hold hold;
  stop.window->FocusDrawn(stop.drawn);
  if (!stop.window->IsAlive()) return;
  TmyApplication::Get().RecordFocus(*stop.window);  // or a top-level window would hand the focus on to its last control
  stop.window->TakeFocus();
}

#include "toolkit/TabOrder.h"

#include <algorithm>

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
      const bool isChildWindow = child->IsAlive() && child->HasStyle(WS_CHILD);
      if (isChildWindow && child->IsEnabled()) Collect(*child);
    }
  }
  if (stops_.size() == before && window.CanFocus()) stops_.push_back({&window, nullptr});
}

void TabOrder::Move(TmyComponent& from, bool forward) const {
  const size_t count = stops_.size();
  if (count == 0) return;
  const auto isOn = [&](const Stop& stop) { return stop.window == &from && stop.drawn == from.FocusedControl(); };
  const auto isInside = [&](const Stop& stop) { return stop.window == &from; };
  const auto at = std::ranges::find_if(stops_, isOn);
  if (at != stops_.end()) {
    const auto index = static_cast<size_t>(at - stops_.begin());
    return Go(stops_[(index + (forward ? 1 : count - 1)) % count]);
  }
  // A window whose focused control is one no more: to its first or last one.
  const auto first = std::ranges::find_if(stops_, isInside);
  const auto last = std::find_if(stops_.rbegin(), stops_.rend(), isInside);
  if (first == stops_.end()) return Go(forward ? stops_.front() : stops_.back());
  Go(forward ? *first : *last);
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

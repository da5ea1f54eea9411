// Marlux 3. The order in which Tab walks through a top-level window: windows and drawn controls, as they were added.
#pragma once

#include <vector>

#include "toolkit/myComponents.h"

class TabOrder {
 public:
  explicit TabOrder(TmyComponent& topLevel) { Collect(topLevel); }

  // From where the keyboard is now (a window, and in it perhaps a drawn control) to the next stop, around the end.
  void Move(TmyComponent& from, bool forward) const;
  void First() const;

 private:
  struct Stop {
    TmyComponent* window;
    TmyControl* drawn;  // null: the window itself
  };
  void Collect(TmyComponent& window);
  void Go(const Stop& stop) const;

  std::vector<Stop> stops_;  // nothing in it is owned; valid until the next message
};

// Marlux 3. Where a window stands, between the store and the screen. A stored place that no monitor shows any more is
// brought into view; as long as the user does not move the window, the store gets its own numbers back, so that they
// still hold when the monitor returns. A monitor that goes while the window is on it counts as a move: the system moves
// the window then.
#pragma once

#include <optional>

#include "app/SettingsStore.h"
#include "toolkit/myComponents.h"

class PlacedWindow {
 public:
  // Moves the window to the stored place, or as near as a monitor's work area allows.
  void Restore(const TmyWindowBase& window, const Settings::Place& stored);
  // The numbers to store. A minimised or maximised window gives the place to which it goes back.
  [[nodiscard]] Settings::Place Current(const TmyWindowBase& window) const;

  // Pure: `place` shrunk to the area and moved so that all of it is inside.
  [[nodiscard]] static Settings::Place Inside(const Settings::Place& place, const RECT& area) noexcept;
  // Whether the area shows enough of the caption to take hold of it.
  [[nodiscard]] static bool IsReachable(const Settings::Place& place, const RECT& area) noexcept;

 private:
  Settings::Place stored_ = {};
  std::optional<Settings::Place> shown_;  // where it came to stand; none when the system did not tell
};

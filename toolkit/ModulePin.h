// Marlux 3. Keeps this module's code in memory while a message loop runs inside it, a dialog's or one of the system's
// for a menu or for moving a window: the host may unload the module from inside such a loop, which has to return into
// it.
//
// The last pin does not give its reference back itself, for then it could unload the code that it returns to. Whoever
// is called by the host calls ReleaseUnused: a host that calls in holds a reference of its own at that moment. It does
// nothing inside a message to a window of ours: the host may have closed the plug-in there and unload it next.
#pragma once

#include "foundation/FrameFlag.h"

class ModulePin {
 public:
  ModulePin() noexcept;
  ModulePin(const ModulePin&) = delete;
  ModulePin& operator=(const ModulePin&) = delete;

  static void ReleaseUnused() noexcept;
  // The module is being unloaded: a reference taken from now on would leave a dead module in the list of loaded ones.
  static void ModuleGoes() noexcept { isGoing_ = true; }

 private:
  static FrameFlag active_;  // a loop is running
  static bool isGoing_;

  FrameFlag::Scope scope_;
};

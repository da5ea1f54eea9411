// Marlux 3. Counts notches of a wheel. Fine ones turn by less than a notch at a time: what is left over counts at the
// next turn, unless that goes the other way.
#pragma once

#include <windows.h>

class WheelTurn {
 public:
  // `delta` is the message's; 120 a notch, towards zero.
  [[nodiscard]] int Notches(int delta) noexcept {
    if ((delta < 0) != (rest_ < 0)) rest_ = 0;
    rest_ += delta;
    const int notches = rest_ / WHEEL_DELTA;
    rest_ %= WHEEL_DELTA;
    return notches;
  }

 private:
  int rest_ = 0;
};

// Marlux 3. What the user types into a list to find an item: characters that follow each other within a second belong
// together.
#pragma once

#include "foundation/TmyString.h"

class TypeSearch {
 public:
  static constexpr uint32_t kPauseMilliseconds = 1000;

  // True when the character belongs to the search; Text() has grown then. Control characters do not, nor does a blank
  // that would begin a text. `ticks` as of Clock::Ticks.
  bool Type(char character, uint32_t ticks);
  void Reset() noexcept { text_ = TmyString(); }
  [[nodiscard]] const TmyString& Text() const noexcept { return text_; }

 private:
  TmyString text_;
  uint32_t last_ = 0;
};

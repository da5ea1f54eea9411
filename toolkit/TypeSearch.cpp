#include "toolkit/TypeSearch.h"

bool TypeSearch::Type(char character, uint32_t ticks) {
  const auto code = static_cast<uint8_t>(character);
  if (code < ' ' || code == 0x7F) return false;
  if (ticks - last_ > kPauseMilliseconds) Reset();  // the difference is right across the wrap of the ticks
  if (code == ' ' && text_.IsEmpty()) return false;
  text_ += character;
  last_ = ticks;
  return true;
}

#include "foundation/SystemErrorText.h"

#include <windows.h>

TmyString SystemErrorText(uint32_t error) {
  char text[400];
  const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                      text, sizeof(text), nullptr);
  DWORD end = length;
  while (end > 0 && static_cast<uint8_t>(text[end - 1]) <= ' ') --end;  // not Trim: it takes letters above 0x7F, too
  return end > 0 ? TmyString(text, end) : Formatted("error %u", error);
}

// Marlux 3. TmyString from wide text: the only part of it that asks Windows.
#include <windows.h>

#include "foundation/TmyString.h"

TmyString::TmyString(const wchar_t* text) : TmyString() {
  if (!text) return;
  const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);  // with its zero
  if (size <= 1) return;
  TmyString converted = Repeat(' ', static_cast<uint32_t>(size) - 1);
  if (converted.IsEmpty()) return;
  WideCharToMultiByte(CP_ACP, 0, text, -1, converted.WritableAt(0), size, nullptr, nullptr);
  *this = TmyString(converted.View());  // the capacity of a copy
}

// Marlux 3. Files that another program has open for a moment.
//
//   const auto opens = [&] { return file.Open(...); };
//   if (!HeldFile::TryFor(opens)) ...
#pragma once

#include <windows.h>

namespace HeldFile {

// Whoever looks through new files, a virus scanner say, is done with one soon.
inline constexpr int kTries = 5;
inline constexpr DWORD kBetweenTries = 25;  // milliseconds

[[nodiscard]] inline bool IsReason(DWORD error) noexcept {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
}

// Takes a step that is false, with the system's code of the reason, until it goes through; again only as long as that
// is somebody's hold.
template <class Step>
[[nodiscard]] bool TryFor(Step step) {
  for (int left = kTries; left > 0; --left) {
    if (left < kTries) Sleep(kBetweenTries);
    if (step()) return true;
    if (!IsReason(GetLastError())) return false;
  }
  return false;
}

}  // namespace HeldFile

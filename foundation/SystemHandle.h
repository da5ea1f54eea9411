// Marlux 3. Owners of the system's handles: closed when they go out of scope.
//
//   const SystemHandle file(HandleOrNull(CreateFileA(...)));
//   if (!file) return GetLastError();   // nothing was there to close: still the code of the opening
#pragma once

#include <windows.h>

#include <memory>

struct HandleCloser {
  void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
struct FindCloser {
  void operator()(HANDLE search) const noexcept { FindClose(search); }
};

using SystemHandle = std::unique_ptr<void, HandleCloser>;  // of a file, a mapping, an event
using FindHandle = std::unique_ptr<void, FindCloser>;      // of a search through a folder

// Where files and searches come from "none" is a value of its own.
[[nodiscard]] inline HANDLE HandleOrNull(HANDLE handle) noexcept {
  return handle == INVALID_HANDLE_VALUE ? nullptr : handle;
}

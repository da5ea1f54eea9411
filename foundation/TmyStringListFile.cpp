#include <windows.h>

#include "foundation/TmyStringList.h"

// TmyStringList::LoadFromFile, the part of it that asks Windows.

namespace {

// A handle from CreateFile or CreateFileMapping; both ways to say "none" count as none.
class Handle {
 public:
  explicit Handle(HANDLE handle) noexcept : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
  ~Handle() {
    if (handle_) CloseHandle(handle_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  explicit operator bool() const noexcept { return handle_ != nullptr; }
  [[nodiscard]] HANDLE Get() const noexcept { return handle_; }

 private:
  HANDLE handle_;
};

}  // namespace

bool TmyStringList::LoadFromFile(const TmyString& path) {
  // A copy, because it may be one of our own entries.
  const TmyString name = path;  // NOLINT(performance-unnecessary-copy-initialization)
  Clear();
  const Handle file(CreateFileA(name.Chars(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return false;
  LARGE_INTEGER size;
  if (!GetFileSizeEx(file.Get(), &size) || size.QuadPart == 0 || size.QuadPart > INT32_MAX) return false;
  const Handle mapping(CreateFileMappingA(file.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
  if (!mapping) return false;
  const void* const view = MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, 0);
  if (!view) return false;
  SetText(static_cast<const char*>(view), static_cast<uint32_t>(size.QuadPart));
  UnmapViewOfFile(view);
  return true;
}

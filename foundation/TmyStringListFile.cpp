#include "foundation/SystemHandle.h"
#include "foundation/TmyStringList.h"

// TmyStringList::LoadFromFile, the part of it that asks Windows.

bool TmyStringList::LoadFromFile(const TmyString& path) {
  // A copy, because it may be one of our own entries.
  const TmyString name = path;  // NOLINT(performance-unnecessary-copy-initialization)
  Clear();
  const SystemHandle file(
      HandleOrNull(CreateFileA(name.Chars(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)));
  if (!file) return false;
  LARGE_INTEGER size;
  if (!GetFileSizeEx(file.get(), &size) || size.QuadPart == 0 || size.QuadPart > INT32_MAX) return false;
  const SystemHandle mapping(CreateFileMappingA(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
  if (!mapping) return false;
  const void* const view = MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0);
  if (!view) return false;
  SetText(static_cast<const char*>(view), static_cast<uint32_t>(size.QuadPart));
  UnmapViewOfFile(view);
  return true;
}
